#pragma once

#include <cstddef>
#include <cstdint>

/// Rows of the field maps. A field's row is its bit in the index records: those of the first block in "FixedMeta",
/// those from `SecondBlock` on in "Fixed2Meta". A number in a name tells that the meaning is unknown; such bits are
/// written as found in real files.
namespace brackwater {

struct TaskRow {
    enum : std::uint16_t {
        UniqueID = 0,
        ID = 1,
        Header = 2, ///< no task: one of the rows in front
        Milestone = 5,
        Critical = 6,
        OfProject = 8,
        Flag9 = 9, ///< set in every record
        Summary = 10,
        Marked = 14,
        NotSplit = 15,
        IgnoreResourceCalendar = 17,
        Rollup = 19,
        Flag20 = 20,
        HideBar = 23,
        EffortDriven = 28,
        Flag31 = 31,
        Flag32 = 32, ///< set in every record
        Collapsed = 33,
        HasNotes = 36,
        LevelingCanSplit = 41,
        LevelAssignments = 42,
        Split = 43,
        Estimated = 45,
        FirstField = 46,
        LastField = 104,
        Title = 115,
        Text1 = 118,  ///< and the nine behind it
        Text11 = 194, ///< and the nineteen behind it
        Notes = 288,
        PercentOverTime = 302,
        SecondBlock = 307,
        LastSecondField = 313,
        Baseline1 = 315, ///< start, finish, cost, work, duration, its units, fixed cost; three more
        RowsOfBaseline = 10,
        MoreOfBaseline1 = 850, ///< seven more fields of the baseline
        MoreRowsOfBaseline = 7,
        ProjectElement = 927,
        /// Maps of files with long second rows have four fixed fields more, in front of the baselines' rows.
        FieldsOfLongRows = 4,
        ProjectElementOfLongRows = 926,
    };
    /// Of the text field at a position counted from 1.
    [[nodiscard]] static constexpr std::size_t text(std::size_t position) {
        return position <= 10 ? Text1 + position - 1 : Text11 + position - 11;
    }
};

struct ResourceRow {
    enum : std::uint16_t {
        UniqueID = 0,
        ID = 1,
        Header = 2,
        OfTypeWork = 9,
        HasNotes = 10,
        Flag12 = 12, ///< in real files set with the type work
        Flag13 = 13,
        Flag15 = 15, ///< in real files never set
        FirstField = 16,
        LastField = 42,
        Name = 43,
        Element85 = 44,
        Initials = 45,
        Group = 46,
        Code = 47,
        EmailAddress = 48,
        Text1 = 52, ///< and the twenty-nine behind it
        Notes = 206,
        SecondBlock = 225, ///< the GUID
        SheetPosition = 226,
        Flag227 = 227,
        OfTypeCost = 229,
        Budget = 230,
        SecondGuid = 231,
        Element739 = 458,
        Baseline1 = 507, ///< work, cost; two more
        RowsOfBaseline = 4,
    };
    [[nodiscard]] static constexpr std::size_t text(std::size_t position) { return Text1 + position - 1; }
};

struct AssignmentRow {
    enum : std::uint16_t {
        UniqueID = 0,
        Split = 4,
        WorkDone = 5,
        Finished = 6,
        Flag12 = 12, ///< set in every record
        Flag13 = 13,
        HasNotes = 15,
        Flag20 = 20, ///< set in every record
        FirstField = 22,
        LastField = 46,
        Notes = 52,
        PlannedWork = 53,
        CompleteWork = 55,
        SecondBlock = 205, ///< the GUID
        Flag206 = 206,
        Flag208 = 208,
        Flag209 = 209, ///< set in every record
        TaskGuid = 210,
        ResourceGuid = 211,
        MomentOfWriting = 420,
        BudgetOfBaseline1 = 429, ///< work, cost; two more
        BudgetRowsOfBaseline = 4,
        Element652 = 469,
        Baseline1 = 471, ///< start, finish, work, cost; four more
        RowsOfBaseline = 8,
        Element665 = 555,
        Element667 = 557,
    };
};

struct CalendarRow {
    enum : std::uint16_t {
        UniqueID = 0,
        BaseCalendarID = 1,
        ResourceID = 2,
        IsBaseCalendar = 3,
        Header = 5,
        Name = 6,
        Block = 8,
        SecondBlock = 9, ///< the GUID
        ResourceGuid = 10,
        BaseCalendarGuid = 11,
        IsStandard = 13,
    };
};

struct LinkRow {
    enum : std::uint16_t {
        UniqueID = 0,
        PredecessorID = 3,
        Lag = 7,
        SecondBlock = 8, ///< the GUID
        SuccessorGuid = 10,
    };
};

} // namespace brackwater
