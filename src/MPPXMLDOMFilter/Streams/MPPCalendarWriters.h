#pragma once

#include "MPPXMLDOMFilter/Streams/MPPRowStorageWriter.h"

#include <cstdint>

namespace brackwater {

/// What the 2007 and the 2010 layout of "TBkndCal" share: every calendar of the project in one order (standard, the
/// default resource's, base, of resources).
class MPPCalendarStreamWriter : public MPPRowStorageWriter {
public:
    using MPPRowStorageWriter::MPPRowStorageWriter;

protected:
    [[nodiscard]] RowStorageLayout layout() const override;
    void writeVar2Data(StreamOutput& stream) override;
    void writeVarMeta(MPP12VarMeta& varMeta, StreamOutput& stream) override;
    void writeFixedData(StreamOutput& stream) override;
    void writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) override;
    void writeFixed2Data(StreamOutput& stream) override;
    void writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) override;

    /// Whether the calendar has a block of its own beside its name.
    [[nodiscard]] virtual bool hasBlock(const MPPCalendar& calendar) const = 0;
    /// Whether the standard calendar's record in "FixedMeta" tells that it has a block.
    [[nodiscard]] virtual bool standardRowTellsBlock(const MPPCalendar& calendar) const = 0;
    /// Start value in "FixedMeta" of a resource's calendar that has a block.
    [[nodiscard]] virtual std::uint32_t startValueOfResourceBlock() const = 0;
    /// The number that the next dated work week gets (ProcessState).
    [[nodiscard]] virtual std::uint32_t& workWeekCounter() const = 0;

    /// True when the calendar has hours, exceptions or dated weeks of its own.
    [[nodiscard]] static bool definesAnything(const MPPCalendar& calendar);

private:
    template <typename Visitor>
    void visitElements(const MPPCalendar& calendar, Visitor element);
    [[nodiscard]] std::uint32_t startValueOf(const MPPCalendar& calendar, std::uint32_t usual) const;
};

/// Writes "TBkndCal" of the 2007 layout, the folder "   112".
class MPP12CalendarWriter : public MPPCalendarStreamWriter {
public:
    using MPPCalendarStreamWriter::MPPCalendarStreamWriter;

    /// Runs once for both layouts, last of its kind, before any stream is written: gives all calendars their IDs, and a
    /// calendar to the project and to every resource that has none.
    static void preprocessProject(MPPProject& project);
    [[nodiscard]] static bool calendarDataShouldBeWritten(const MPPCalendar& calendar);

protected:
    [[nodiscard]] bool hasBlock(const MPPCalendar& calendar) const override {
        return calendarDataShouldBeWritten(calendar);
    }
    [[nodiscard]] bool standardRowTellsBlock(const MPPCalendar& calendar) const override { return hasBlock(calendar); }
    [[nodiscard]] std::uint32_t startValueOfResourceBlock() const override { return 0x00010000; }
    [[nodiscard]] std::uint32_t& workWeekCounter() const override;
};

/// Writes "TBkndCal" of the 2010 layout, the folder "   114". The standard calendar's own hours do not reach this
/// layout, and the storage has no "Props".
class MPP14CalendarWriter : public MPPCalendarStreamWriter {
public:
    using MPPCalendarStreamWriter::MPPCalendarStreamWriter;

    [[nodiscard]] static bool calendarDataShouldBeWritten(const MPPCalendar& calendar);

protected:
    void writeProps() override {}
    [[nodiscard]] bool hasBlock(const MPPCalendar& calendar) const override {
        return calendarDataShouldBeWritten(calendar);
    }
    /// Never, whatever the standard calendar has: one that is a resource's too has a block, as that resource's.
    [[nodiscard]] bool standardRowTellsBlock(const MPPCalendar& /*calendar*/) const override { return false; }
    [[nodiscard]] std::uint32_t startValueOfResourceBlock() const override { return 0; }
    [[nodiscard]] std::uint32_t& workWeekCounter() const override;
};

} // namespace brackwater
