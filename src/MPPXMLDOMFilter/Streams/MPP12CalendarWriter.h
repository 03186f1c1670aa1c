#pragma once

#include "MPPXMLDOMFilter/Streams/MPPCalendarStreamWriter.h"

namespace brackwater {

/// Writes "TBkndCal" of the 2007 layout, the folder "   112".
class MPP12CalendarWriter : public MPPCalendarStreamWriter {
public:
    using MPPCalendarStreamWriter::MPPCalendarStreamWriter;

    /// Runs once for both layouts, last of its kind, before any stream is written: gives all calendars their IDs, and a
    /// calendar to the project and to every resource that has none.
    static void preprocessProject(MPPProject& project);
    [[nodiscard]] static bool calendarDataShouldBeWritten(const MPPCalendar& calendar);

protected:
    /// The six streams and the template's "Props".
    void writeSteps() override;
    [[nodiscard]] bool hasBlock(const MPPCalendar& calendar) const override {
        return calendarDataShouldBeWritten(calendar);
    }
    [[nodiscard]] std::uint16_t flagsOfStandardRow(const MPPCalendar& calendar) const override {
        return hasBlock(calendar) ? kFlagsWithBlock : kFlagsWithoutBlock;
    }
    [[nodiscard]] std::uint32_t startValueOfResourceBlock() const override { return 0x00010000; }
    [[nodiscard]] std::uint32_t& workWeekCounter() const override;
};

} // namespace brackwater
