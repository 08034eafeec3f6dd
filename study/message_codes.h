#pragma once

namespace kalvo::message {

/// The numbered messages that code shows, by what they say. Their texts are in the catalogue.
constexpr int kNoTitle = 1;
constexpr int kNoGeneralData = 2;
constexpr int kNoTemperature = 3;
constexpr int kNoVelocity = 4;
constexpr int kNoPlant = 5;
constexpr int kWrongFeeder = 6;
constexpr int kNoLength = 7;
constexpr int kNamesToBeCorrected = 10;
constexpr int kNamesToBeChecked = 11;
constexpr int kOutletsToBeChecked = 12;
constexpr int kTemperatureLimit = 20;
constexpr int kVelocityLimit = 21;
constexpr int kNamesAreFine = 23;
constexpr int kTooManySeparators = 110;
constexpr int kDeleteSection = 120;
constexpr int kNothingToDelete = 121;
constexpr int kNothingToInsertBefore = 122;
constexpr int kSaveChanges = 130;
constexpr int kLeaveSavedStudy = 135;
constexpr int kNoData = 139;
constexpr int kNoResults = 140;
constexpr int kNoEmitterData = 142;
constexpr int kNoOutletData = 143;
constexpr int kSectionTaken = 150;
constexpr int kResultsAreThere = 190;
constexpr int kNumberTooLarge = 200;
constexpr int kPipesDoNotSuffice = -300;
constexpr int kDiametersChanged = 301;
constexpr int kCriticalBranch = 302;
constexpr int kChangeWaits = 304;
constexpr int kNoDiameters = 305;
constexpr int kBringDiametersBack = 306;
constexpr int kKeepDiameters = 307;
constexpr int kNoSuchSection = 400;
constexpr int kNoMassChange = 401;
constexpr int kNoChangeInWinter = 402;
constexpr int kNoSummerResults = 403;
constexpr int kWinterTemperature = 405;
constexpr int kNoPipeSystem = 406;
constexpr int kNoEmitters = 407;
constexpr int kEmittersUnchecked = 2003;
constexpr int kWalkLost = 2004;
constexpr int kNoFluid = 2005;

}  // namespace kalvo::message
