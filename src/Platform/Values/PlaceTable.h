#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace brackwater {

/// A hash table of indexes into a list of entries. An entry has the members `hash` and `nextInBucket`, both
/// std::uint32_t, so the table allocates no memory per entry.
class PlaceTable {
public:
    static constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

    /// The 32 bits of a hash that the table uses.
    [[nodiscard]] static std::uint32_t folded(std::size_t hash) noexcept {
        return static_cast<std::uint32_t>(hash ^ (hash >> 32));
    }

    [[nodiscard]] std::size_t bucketCount() const noexcept { return _buckets.size(); }

    /// Empties the table; `buckets` is a power of two.
    void reset(std::size_t buckets) { _buckets.assign(buckets, kNone); }

    template <typename Entries>
    void add(Entries& entries, std::size_t place) {
        auto& entry = entries[place];
        std::uint32_t& bucket = _buckets[entry.hash & (_buckets.size() - 1)];
        entry.nextInBucket = bucket;
        bucket = static_cast<std::uint32_t>(place);
    }

    /// The index of the entry with this hash that `matches`; kNone if there is none.
    template <typename Entries, typename Matches>
    [[nodiscard]] std::uint32_t find(const Entries& entries, std::uint32_t hash, const Matches& matches) const {
        if (_buckets.empty())
            return kNone;
        std::uint32_t place = _buckets[hash & (_buckets.size() - 1)];
        while (place != kNone && !(entries[place].hash == hash && matches(entries[place])))
            place = entries[place].nextInBucket;
        return place;
    }

private:
    std::vector<std::uint32_t> _buckets;
};

} // namespace brackwater
