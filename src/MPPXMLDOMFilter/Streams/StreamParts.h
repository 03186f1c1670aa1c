#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"
#include "MPPXMLDOMFilter/Model/MPPAssignment.h"
#include "MPPXMLDOMFilter/Model/MPPConstraint.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"
#include "Platform/Exception.h"

#include <fmt/format.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the streams of several storages have in common.
namespace brackwater {

/// Rows of header elements in front of a storage's own rows.
inline constexpr std::size_t kHeaderRows = 3;
inline constexpr std::size_t kCalendarHeaderRows = 4;

/// Header rows of "FixedData", 16 bytes each.
void writeFixedDataHeaderRows(MPPFixedData& data, std::size_t rows);
/// Header rows of "Fixed2Data": zeros.
void writeZeroHeaderRows(MPPFixedData& data, std::size_t rows, std::size_t rowSize);
/// Records of header rows: the start value, the row's offset, the number `value`, then zeros up to `recordSize`.
void writeMetaHeaderRows(MPPFixedMeta& meta, std::size_t rows, std::size_t recordSize, std::uint32_t start,
                         std::uint8_t value);

// What the rows of a record show of the tasks that it names.
inline void prefetchTask(const MPPTask* task) {
    if (task == nullptr)
        return;
    __builtin_prefetch(&task->ID);
    __builtin_prefetch(&task->GUID());
}
inline void prefetchTasksOf(const MPPTask& /*task*/) {}
inline void prefetchTasksOf(const MPPAssignment& assignment) { prefetchTask(assignment.task.pointer()); }
inline void prefetchTasksOf(const MPPConstraint& constraint) {
    prefetchTask(constraint.task1.pointer());
    prefetchTask(constraint.task2.pointer());
}

/// Asks memory for the record that stands some places behind `index`, and for what is shown of the tasks of a nearer
/// one, which is at hand by then: a long list lies far outside the processor's caches.
template <typename Record>
void prefetchRecordAhead(const std::vector<std::shared_ptr<Record>>& records, std::size_t index) {
    constexpr std::size_t kAhead = 16;
    constexpr std::size_t kTasksAhead = 8;
    constexpr std::size_t kCacheLine = 64;
    if (index + kAhead >= records.size())
        return;
    const char* next = reinterpret_cast<const char*>(records[index + kAhead].get());
    for (std::size_t offset = 0; offset < sizeof(Record); offset += kCacheLine)
        __builtin_prefetch(next + offset);
    prefetchTasksOf(*records[index + kTasksAhead]);
}

/// A list for a stream that goes through it once: each step asks for a record ahead.
template <typename Record>
class RecordsInOrder {
public:
    explicit RecordsInOrder(const std::vector<std::shared_ptr<Record>>& records) : _records(records) {}

    class Iterator {
    public:
        Iterator(const std::vector<std::shared_ptr<Record>>& records, std::size_t index)
            : _records(records), _index(index) {}
        const std::shared_ptr<Record>& operator*() const { return _records[_index]; }
        Iterator& operator++() {
            prefetchRecordAhead(_records, ++_index);
            return *this;
        }
        bool operator!=(const Iterator& other) const { return _index != other._index; }

    private:
        const std::vector<std::shared_ptr<Record>>& _records;
        std::size_t _index;
    };

    [[nodiscard]] Iterator begin() const { return {_records, 0}; }
    [[nodiscard]] Iterator end() const { return {_records, _records.size()}; }

private:
    const std::vector<std::shared_ptr<Record>>& _records;
};

/// The text, or an empty one when there is none.
[[nodiscard]] inline std::string_view textOf(const std::optional<std::string>& text) {
    return text ? std::string_view(*text) : std::string_view();
}
[[nodiscard]] inline bool hasText(const std::optional<std::string>& text) { return text && !text->empty(); }

/// The notes of a task or resource that has some.
template <typename Record>
void writeNotes(MPPData& data, const Record& record) {
    if (record.notesAreRtf)
        data.writeRtf(*record.notes);
    else
        data.writeRtfString(*record.notes, MPPEncoding::ASCII);
}

/// The format holds work in thousandths of a minute. Two products, not one by 60000: they differ in the last bit.
[[nodiscard]] inline double thousandthsOfMinute(double hours) { return hours * 60.0 * 1000.0; }

/// `types[index - 1]`; outside of 1 to the table's size a failure of the given name, `reason` followed by the index.
[[nodiscard]] inline std::uint16_t typeForIndex(std::span<const std::uint16_t> types, std::size_t index,
                                                std::string_view name, std::string_view reason) {
    if (index < 1 || index > types.size())
        throw Exception(name, fmt::format("{} {}", reason, index));
    return types[index - 1];
}

inline constexpr std::string_view kUnknownTextFieldException = "UnknownTextFieldException";
inline constexpr std::string_view kTextFieldTypeUnknown = "Text field type is unknown for index";
inline constexpr std::string_view kTooManyBaselinesException = "TooManyBaselinesException";

/// The file holds the first baseline apart from the others: a record without one takes it out of its list.
template <typename Record>
void moveFirstBaselineOut(Record& record) {
    if (record.baseline0 || record.baselines.empty())
        return;
    record.baseline0 = record.baselines.front();
    record.baselines.erase(record.baselines.begin());
}

} // namespace brackwater
