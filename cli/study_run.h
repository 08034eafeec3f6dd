#pragma once

#include "cli/session.h"
#include "engine/driver.h"

namespace kalvo {

/// Calculates the session's study, telling on `err` what keeps it from coming about.
/// Gives the exit code.
int CalculateStudy(const Console& console, Session& session, Method method);

/// The same on the diameters that the sections have, by the method they were calculated with.
int CalculateOnFixedDiameters(const Console& console, Session& session);

/// Tells what kept a run from its end. The exit code of it.
int TellRunEnd(const Console& console, Session& session, RunEnd end);

/// Tells that a study of the other kind was expected; the exit code of it.
int RefuseKind(const Console& console, const Session& session, const std::string& file);

/// Names the section of `rows` that broke a run off, where one did, and what it was calculated
/// with; the exit code of it.
int TellBrokenOff(const Console& console, const Session& session,
                  const std::vector<SectionRow>& rows);

}  // namespace kalvo
