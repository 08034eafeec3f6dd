#pragma once

#include <array>

namespace kalvo::work_file {

/// Names of the files in the program folder.
constexpr const char* kRows = "DATARES.TMP";
constexpr const char* kRowsBeforeInsert = "DATARES.OLD";
constexpr const char* kSummerRows = "DATARES.SMR";
constexpr const char* kRowsBeforeChange = "DATARES.@@@";
constexpr const char* kPreviousRows = "DATARES.PRV";
constexpr const char* kResults = "RESULTS.TMP";
constexpr const char* kEmitters = "SOMATA.TMP";
constexpr const char* kEmittersInWork = "SOMATA.@@@";
constexpr const char* kRebuilt = "TEMPODAT.TMP";
constexpr const char* kPostponed = "RESTBRA.TMP";
constexpr const char* kGeneralData = "INTRO.TMP";
constexpr const char* kErrors = "ERRORS.TMP";
constexpr const char* kSequence = "SEQUENT.TMP";
constexpr const char* kStatistics = "STATIST.TMP";
constexpr const char* kWinter = "WINTCIRC.TMP";
constexpr const char* kWinterInWork = "WINTCIRC.@@@";
constexpr const char* kSheet = "Spread.ss2";
constexpr const char* kSheetInWork = "Spread.@@@";
constexpr const char* kSheetIntro = "Intro.ss2";
constexpr const char* kFirstRows = "FIRSTONE.TMP";
constexpr const char* kFirstRowsOld = "FIRSTONE.TM_";
constexpr const char* kFluid = "LIQUID.TMP";
constexpr const char* kFlowReport = "SectionsFlows.txt";
constexpr const char* kOrigin = "ORIGIN.TMP";

/// All that belongs to a study in work, in the order in which it is deleted.
inline constexpr std::array kAll = {
    kRows,        kRowsBeforeInsert, kSummerRows,     kRowsBeforeChange, kPreviousRows,
    kResults,     kEmitters,         kEmittersInWork, kRebuilt,          kPostponed,
    kGeneralData, kErrors,           kSequence,       kStatistics,       kWinter,
    kSheet,       kSheetIntro,       kFirstRows,      kFirstRowsOld,     kFluid,
    kFlowReport,  kOrigin,           kSheetInWork,    kWinterInWork};

/// Files that outlive a study.
constexpr const char* kRecentFiles = "RecentFiles.txt";
constexpr const char* kRecentFilesRebuilt = "RecentFiles.@@@";
constexpr const char* kStudiesIndex = "Studies.std";
constexpr const char* kDataFolder = "~vamo.wpf";
constexpr const char* kOptions = "Kalvoflume.opt";
constexpr const char* kDesigners = "CLIENTS.VAM";
constexpr const char* kFluids = "Liquids.dat";
constexpr const char* kFluidsRebuilt = "Liquids.@@@";

}  // namespace kalvo::work_file
