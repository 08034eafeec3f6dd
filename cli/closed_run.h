#pragma once

#include "cli/session.h"
#include "engine/driver.h"

namespace kalvo {

/// Calculates the closed study of the session, telling on `err` what keeps it from coming about.
/// Gives the exit code.
int CalculateStudy(const Console& console, Session& session, Method method);

/// The same on the diameters that the sections have, by the method they were calculated with.
int CalculateOnFixedDiameters(const Console& console, Session& session);

/// True, and the user has been told, when the study is no closed one.
bool IsOpenStudy(const Console& console, Session& session, const std::string& file);

}  // namespace kalvo
