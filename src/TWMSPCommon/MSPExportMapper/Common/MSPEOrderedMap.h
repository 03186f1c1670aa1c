#pragma once

#include "Platform/Values/PerThread.h"
#include "Platform/Values/PlaceTable.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string_view>
#include <type_traits>
#include <utility>

namespace brackwater {

/// Values by key, in insertion order. A key is a number, a text owned by the map, or a view of a text that outlives it.
///
/// Designed for the tables of large documents, which exceed the processor's caches. Look-ups mostly follow insertion
/// order, one or a few per key: the last entry found and its successor are tried before the hash table. The table
/// stores indexes, so it allocates no memory per entry.
/// The thread that exports and its helper may look up at the same time.
template <typename Key, typename Value>
class MSPEOrderedMap {
public:
    using KeyView = std::conditional_t<std::is_convertible_v<const Key&, std::string_view>, std::string_view, Key>;

    struct Entry {
        Key key;
        Value value;
        std::uint32_t hash;
        std::uint32_t nextInBucket; ///< index of the next entry in the same bucket
    };

    /// False if the key exists; its value stays.
    bool tryAdd(KeyView key, Value value) {
        const std::uint32_t hash = hashOf(key);
        if (placeOf(key, hash) != kNone)
            return false;
        add(key, std::move(value), hash);
        return true;
    }
    /// Inserts the value, or replaces the existing one, and returns it.
    Value& set(KeyView key, Value value) {
        const std::uint32_t hash = hashOf(key);
        const std::uint32_t place = placeOf(key, hash);
        if (place == kNone)
            return add(key, std::move(value), hash);
        return _entries[place].value = std::move(value);
    }

    /// Null if the key is missing. The pointer stays valid.
    [[nodiscard]] const Value* find(KeyView key) const {
        const std::size_t last = _lastPlace.own();
        const std::size_t triedEnd = std::min<std::size_t>(_entries.size(), last + 2);
        for (std::size_t place = last; place < triedEnd; ++place)
            if (_entries[place].key == key)
                return answer(place);
        const std::uint32_t place = placeOf(key, hashOf(key));
        return place == kNone ? nullptr : answer(place);
    }

    [[nodiscard]] Value* find(KeyView key) { return const_cast<Value*>(std::as_const(*this).find(key)); }

    [[nodiscard]] std::size_t size() const noexcept { return _entries.size(); }
    [[nodiscard]] auto begin() const { return _entries.begin(); }
    [[nodiscard]] auto end() const { return _entries.end(); }

private:
    static constexpr std::uint32_t kNone = PlaceTable::kNone;
    static constexpr std::size_t kFirstBuckets = 16;

    static std::uint32_t hashOf(KeyView key) { return PlaceTable::folded(std::hash<KeyView>()(key)); }

    [[nodiscard]] std::uint32_t placeOf(KeyView key, std::uint32_t hash) const {
        return _table.find(_entries, hash, [&](const Entry& entry) { return entry.key == key; });
    }

    Value& add(KeyView key, Value value, std::uint32_t hash) {
        _entries.push_back(Entry{Key(key), std::move(value), hash, kNone});
        if (_entries.size() > _table.bucketCount())
            rebuildTable(std::max(kFirstBuckets, _table.bucketCount() * 2));
        else
            _table.add(_entries, _entries.size() - 1);
        return _entries.back().value;
    }

    void rebuildTable(std::size_t buckets) {
        _table.reset(buckets);
        for (std::size_t place = 0; place < _entries.size(); ++place)
            _table.add(_entries, place);
    }

    const Value* answer(std::size_t place) const {
        _lastPlace.own() = place;
        return &_entries[place].value;
    }

    std::deque<Entry> _entries; ///< a deque: values keep their addresses
    PlaceTable _table;
    mutable PerThread<std::size_t> _lastPlace;
};

} // namespace brackwater
