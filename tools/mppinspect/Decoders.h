#pragma once

#include "ProjectFile.h"
#include "RowReader.h"

namespace brackwater::inspect {

/// What every decoder works on.
struct DecodeContext {
    const CompoundFile& file;
    const PropsFrame& props; ///< "Props" of the version folder
    ProjectFile& out;

    [[nodiscard]] Complaints& complaints() const { return out.complaints; }
};

// Each fills its list of the project and complains of what does not fit. Tasks, resources and calendars come before the
// assignments and links that name them.
void decodeProperties(const DecodeContext& context, Extent extent);
void decodeTasks(const DecodeContext& context);
void decodeCalendars(const DecodeContext& context);
void decodeResources(const DecodeContext& context);
void decodeAssignments(const DecodeContext& context);
void decodeLinks(const DecodeContext& context);

/// Derives the depth of each task from its parents. Complains of parents that are missing and of circles.
void arrangeOutline(std::vector<Task>& tasks, Complaints& complaints);

/// The order of the outline, in which one comparison tells whether a task stands above another.
class Outline {
public:
    explicit Outline(const std::vector<Task>& tasks);
    /// Both by unique id; false for tasks that are not there.
    [[nodiscard]] bool isAncestor(std::uint32_t ancestor, std::uint32_t task) const;
    /// Positions in the list of tasks in outline order; tasks of a circle are left out.
    [[nodiscard]] const std::vector<std::size_t>& order() const noexcept { return _order; }
    [[nodiscard]] int depth(std::size_t position) const { return _depths[position]; }

private:
    struct Span {
        std::size_t first = 0, past = 0;
    };
    void walkFrom(std::size_t root, const std::vector<std::vector<std::size_t>>& children);

    std::map<std::uint32_t, std::size_t> _positions;
    std::vector<Span> _spans; ///< of each task and all below it in the order
    std::vector<int> _depths;
    std::vector<std::size_t> _order;
};

[[nodiscard]] RowStreams readStreams(const DecodeContext& context, const char* storage);
/// The table holds views into the streams.
[[nodiscard]] RowTable readTable(const DecodeContext& context, const RowKind& kind, const RowStreams& streams);
/// Header rows stand in front of the rows and hold no values.
[[nodiscard]] bool isHeaderRow(const RawRow& row);
[[nodiscard]] bool isDeleted(const RawRow& row);
/// What readers make of a row that is too short for its map.
enum class ShortRow { Dropped, Kept };
/// Whether the row is to be read; complains where it has not all the bytes that the map needs. Readers drop some rows
/// that are too short in the first block, and take zeroes for what is missing in the others and in the second block.
[[nodiscard]] bool fitsMap(const RowTable& table, const RawRow& row, ShortRow ifShort, Complaints& complaints);
/// "row 17"
[[nodiscard]] std::string rowName(const RawRow& row);
/// Names of text fields in the "Props" of a storage, by position.
[[nodiscard]] std::map<std::size_t, std::string> readTextNames(const RowStreams& streams, const std::string& where,
                                                               std::span<const std::uint16_t> textFields,
                                                               Complaints& complaints);
[[nodiscard]] TextFields readTexts(const RowReader& row, std::span<const std::uint16_t> textFields);
/// Complains of rows of the same unique id; the ids come back sorted.
template <typename Record, typename Id>
std::vector<std::uint32_t> checkIds(const std::vector<Record>& records, Id Record::*id, const std::string& where,
                                    Complaints& complaints);
void complainOfRepeatedIds(std::vector<std::uint32_t>& ids, const std::string& where, Complaints& complaints);

template <typename Record, typename Id>
std::vector<std::uint32_t> checkIds(const std::vector<Record>& records, Id Record::*id, const std::string& where,
                                    Complaints& complaints) {
    std::vector<std::uint32_t> ids;
    ids.reserve(records.size());
    for (const Record& record : records)
        ids.push_back(record.*id);
    complainOfRepeatedIds(ids, where, complaints);
    return ids;
}

} // namespace brackwater::inspect
