#pragma once

#include "form/desk.h"
#include "form/key.h"

namespace kalvo {

/// The two roads into a change of diameters. What is changed by way of a button is calculated at
/// once, from `DATARES.PRV`; by way of the menu it waits, and `DATARES.@@@` leads back.
enum class ChangeRoad { kButton, kMenu };

/// Makes the copies of a road. False: in winter, which is refused by message 402, or where one
/// cannot be made, which the user was told; no form for a change may open then.
bool TakeRoad(Desk& desk, ChangeRoad road);

/// Opens the form for the diameter of the section on show, or brings it to the front.
void ChangeOneDiameter(Desk& desk, ChangeRoad road);

/// Opens the form for the diameters of many sections, over the view. While the one for a single
/// section is open it is refused by message 401.
void ChangeManyDiameters(Desk& desk, ChangeRoad road);

/// While the form for a single section is open a view hands its keys in: F6 leads to the form, Esc
/// closes it. True: the key is used up.
bool LeadsToOneDiameter(Desk& desk, const Key& key);

/// Whether one view may give way to the other. False: the form for a single section serves this
/// one, which the user is told.
bool MaySwitchViews(Desk& desk);

/// The view that is not in use closes.
void CloseOtherView(Desk& desk);

}  // namespace kalvo
