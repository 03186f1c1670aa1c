#pragma once

#include "MPPXMLDOMFilter/Model/MPPAssignment.h"
#include "MPPXMLDOMFilter/Model/MPPConstraint.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace brackwater {

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

} // namespace brackwater
