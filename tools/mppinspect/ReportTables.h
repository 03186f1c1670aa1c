#pragma once

#include "ProjectFile.h"
#include "TextReport.h"
#include "TextTable.h"

namespace brackwater::inspect {

/// What a section is about, a row a record.
[[nodiscard]] TextTable mainTable(const ProjectFile& project, Section section);

/// What else there is to tell of records.
struct RecordTables {
    TextTable textFields, baselines, notes;
};
[[nodiscard]] RecordTables taskTables(const ProjectFile& project);
[[nodiscard]] RecordTables resourceTables(const ProjectFile& project);
[[nodiscard]] RecordTables assignmentTables(const ProjectFile& project);

[[nodiscard]] TextTable calendarExceptions(const ProjectFile& project);
[[nodiscard]] TextTable calendarWorkWeeks(const ProjectFile& project);
/// Values of a summary stream; ids without a name have none.
[[nodiscard]] TextTable summaryValues(const std::vector<SummaryValue>& values,
                                      const std::map<std::uint32_t, const char*>& names);

} // namespace brackwater::inspect
