#pragma once

#include "MPPXMLDOMFilter/Streams/MPPCalendarStreamWriter.h"

namespace brackwater {

/// Writes "TBkndCal" of the 2010 layout, the folder "   114". The standard calendar's own hours do not reach this
/// layout, and the storage has no "Props".
class MPP14CalendarWriter : public MPPCalendarStreamWriter {
public:
    using MPPCalendarStreamWriter::MPPCalendarStreamWriter;

    [[nodiscard]] static bool calendarDataShouldBeWritten(const MPPCalendar& calendar);

protected:
    [[nodiscard]] bool hasBlock(const MPPCalendar& calendar) const override {
        return calendarDataShouldBeWritten(calendar);
    }
    /// The same whatever the standard calendar has: one that is a resource's too has a block, as that resource's.
    [[nodiscard]] std::uint16_t flagsOfStandardRow(const MPPCalendar& /*calendar*/) const override {
        return kFlagsWithoutBlock;
    }
    [[nodiscard]] std::uint32_t startValueOfResourceBlock() const override { return 0; }
    [[nodiscard]] std::uint32_t& workWeekCounter() const override;
};

} // namespace brackwater
