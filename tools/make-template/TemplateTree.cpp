#include "TemplateTree.h"

#include "ProjectProps.h"
#include "RootStreams.h"
#include "RowStorage.h"
#include "TemplateValues.h"
#include "ViewFolder.h"

#include <fmt/format.h>

namespace brackwater::layout {

namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFF;
constexpr std::uint32_t kProjectUnits = 0x15; ///< duration units of the project's row
constexpr std::uint32_t kElapsedDays = 8, kPerHour = 2;
constexpr std::uint32_t kFixedDuration = 1;
constexpr std::uint32_t kProrated = 3; ///< costs accrue with the work
constexpr std::uint32_t kStandardCalendar = 1, kDefaultResourceCalendar = 2;

// The project's own row.
Row projectRow() {
    Row row(taskFields());
    row.number("unique id", 0).number("id", 0).number("parent id", kNone);
    for (const char* date : {"start", "finish", "early start", "early finish", "late start", "late finish", "created"})
        row.number(date, kProjectStart);
    for (const char* units : {"duration units", "baseline duration units"})
        row.number(units, kProjectUnits);
    row.number("leveling delay units", kElapsedDays);
    row.number("priority", 500).number("type", kFixedDuration).number("fixed cost accrual", kProrated);
    row.number("state bits", 0x80).number("calendar id", kNone);
    row.guid("guid", kProjectGuid).real("place in the sheet", 1.0);
    row.number("second block, value at 44", 3).number("second block, value at 46", 0x40);
    row.element("title", ByteBuilder().text16("").take());
    return row;
}

// The placeholder row for work without a resource.
Row defaultResourceRow() {
    Row row(resourceFields());
    row.number("standard rate units", kPerHour).number("overtime rate units", kPerHour).number("accrual", kProrated);
    row.number("calendar id", kDefaultResourceCalendar);
    row.real("maximum units", 10000.0);
    row.flag("of type work");
    row.guid("guid", kDefaultResourceGuid).guid("second guid", kDefaultResourceGuid).real("place in the sheet", 1.0);
    return row;
}

Row standardCalendarRow() {
    Row row(calendarFields());
    row.number("unique id", kStandardCalendar).number("id of the base calendar", kNone).number("resource id", kNone);
    row.flag("base calendar");
    row.element("name", ByteBuilder().text16(kStandardCalendarName).take());
    row.guid("guid", kStandardCalendarGuid);
    return row;
}

Row defaultResourceCalendarRow() {
    Row row(calendarFields());
    row.number("unique id", kDefaultResourceCalendar).number("id of the base calendar", kStandardCalendar);
    row.number("resource id", 0);
    row.guid("guid", kDefaultResourceGuid).guid("guid of the resource", kDefaultResourceGuid);
    row.guid("guid of the base calendar", kStandardCalendarGuid);
    return row;
}

// All real files have this one row: the code for none.
Row noOutlineCodeRow() {
    Row row(outlineCodeFields());
    row.guid("guid", kNoOutlineCodeGuid).guid("guid of the parent", kNoOutlineCodeGuid);
    row.guid("guid of the field", kNobodyGuid);
    row.element("number", ByteBuilder().f64(0).take());
    return row;
}

std::vector<RowStorage> rowStorages() {
    return {
        {.name = "TBkndTask", .table = taskFields(), .headerRows = 3, .rows = {projectRow()}},
        {.name = "TBkndRsc", .table = resourceFields(), .headerRows = 3, .rows = {defaultResourceRow()}},
        {.name = "TBkndCal",
         .table = calendarFields(),
         .headerRows = 4,
         .rows = {standardCalendarRow(), defaultResourceCalendarRow()}},
        {.name = "TBkndAssn", .table = assignmentFields(), .headerRows = 0, .rows = {}},
        {.name = "TBkndCons", .table = linkFields(), .headerRows = 0, .rows = {}, .hasVar2Data = false},
        {.name = "TBkndOutlCode", .table = outlineCodeFields(), .headerRows = 3, .rows = {noOutlineCodeRow()}},
    };
}

} // namespace

std::vector<Entry> templateTree(VersionFolder folder) {
    const std::vector<RowStorage> storages = rowStorages();
    Entry rows = Entry::storage(fmt::format("   {}", static_cast<int>(folder)), {});
    for (const RowStorage& storage : storages) {
        verify(storage.table);
        rows.children.push_back(storage.entry(storage.name == "TBkndTask" ? taskStorageProps() : storageProps()));
    }
    rows.children.push_back(Entry::stream("Props", projectProps(storages)));
    return {
        Entry::stream("\x01"
                      "CompObj",
                      compObj()),
        Entry::stream("\x05SummaryInformation", summaryInformation()),
        Entry::stream("\x05"
                      "DocumentSummaryInformation",
                      documentSummaryInformation()),
        Entry::stream("Props12", rootProps()),
        std::move(rows),
        viewFolder(),
    };
}

} // namespace brackwater::layout
