#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12ProjectPropsWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"
#include "MPPXMLDOMFilter/Streams/MPPCalendarWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPConstraintWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPViewStorageWriters.h"
#include "MPPXMLDOMFilter/Walk/TemplateWalk.h"
#include "support/MemoryTemplate.h"
#include "support/MemoryWriter.h"

#include <gtest/gtest.h>

#include <typeinfo>

namespace brackwater::test {
namespace {

/// Whether exactly this class writes the entry of this name in a folder of this name.
template <typename Class>
bool isWrittenBy(std::string_view name, std::string_view parent) {
    const auto writer = newWriterForEntry(
        name, parent, std::make_shared<MemoryWriter>(std::make_shared<MemoryOutput>()), memoryStream({}));
    const MPPWriter& made = *writer;
    return typeid(made) == typeid(Class);
}

constexpr std::string_view k2007 = "   112";
constexpr std::string_view k2010 = "   114";
constexpr std::string_view kViews = "   212";
constexpr std::string_view kRoot;

TEST(EntryTable, FindsMostEntriesInAnyFolder) {
    for (const std::string_view parent : {k2007, k2010, kViews, kRoot}) {
        EXPECT_TRUE(isWrittenBy<MPP12TaskWriter>("TBkndTask", parent));
        EXPECT_TRUE(isWrittenBy<MPP12AssignmentWriter>("TBkndAssn", parent));
        EXPECT_TRUE(isWrittenBy<MPP12RscWriter>("TBkndRsc", parent));
        EXPECT_TRUE(isWrittenBy<MPP12ProjectPropsWriter>("Props12", parent));
        EXPECT_TRUE(isWrittenBy<MPP12ProjectPropsWriter>("Props14", parent));
        EXPECT_TRUE(isWrittenBy<MPP12ProjectSInfoWriter>("\x05SummaryInformation", parent));
        EXPECT_TRUE(isWrittenBy<MPP12ProjectDocSInfoWriter>("\x05"
                                                            "DocumentSummaryInformation",
                                                            parent));
        EXPECT_TRUE(isWrittenBy<MPP12CViewWriter>("CV_iew", parent));
        EXPECT_TRUE(isWrittenBy<MPP12CTableWriter>("CTable", parent));
        EXPECT_TRUE(isWrittenBy<MPP12CEdlWriter>("CEdl", parent));
    }
}

TEST(EntryTable, CalendarsAndLinksDependOnTheFolder) {
    EXPECT_TRUE(isWrittenBy<MPP12CalendarWriter>("TBkndCal", k2007));
    EXPECT_TRUE(isWrittenBy<MPP14CalendarWriter>("TBkndCal", k2010));
    EXPECT_TRUE(isWrittenBy<MPP12ConstraintWriter>("TBkndCons", k2007));
    EXPECT_TRUE(isWrittenBy<MPP14ConstraintWriter>("TBkndCons", k2010));
    EXPECT_TRUE(isWrittenBy<MPP12ProjectPropsWriter>("Props", k2007));
    EXPECT_TRUE(isWrittenBy<MPP12ProjectPropsWriter>("Props", k2010));
    for (const std::string_view parent : {kViews, kRoot, std::string_view("112"), std::string_view("   11")}) {
        for (const std::string_view name : {"TBkndCal", "TBkndCons", "Props"})
            EXPECT_TRUE(isWrittenBy<MPPWriter>(name, parent)) << name << " in '" << parent << "'";
    }
}

TEST(EntryTable, LeavesOtherEntriesToTheCopier) {
    for (const std::string_view name : {"", "tbkndtask", "TBkndTask ", "TBkndOutlCode", "SummaryInformation", "CFilter",
                                        "\x01"
                                        "CompObj"})
        EXPECT_TRUE(isWrittenBy<MPPWriter>(name, k2007)) << name;
}

} // namespace
} // namespace brackwater::test
