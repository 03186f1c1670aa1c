#include "RowSet.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {

constexpr std::uint32_t kMagic = 0xFADFADBA;
constexpr std::size_t kVarMetaHeader = 24, kVarMetaRecord = 12;
constexpr std::size_t kFixedMetaHeader = 16, kRecordHead = 8;

ByteView viewOf(const std::optional<Bytes>& stream) { return stream ? ByteView(*stream) : ByteView(); }

bool hasHeader(const std::optional<Bytes>& meta, std::size_t headerSize, const std::string& name,
               Complaints& complaints) {
    const ByteView view = viewOf(meta);
    if (!meta)
        complaints.add(name, "the stream is missing");
    else if (view.size() < headerSize || *view.u32(0) != kMagic)
        complaints.add(name, "the header is not that of a meta stream");
    else
        return true;
    return false;
}

} // namespace

VarData::VarData(const RowStreams& streams, const std::string& where, Complaints& complaints) {
    const std::string metaName = where + "/VarMeta", dataName = where + "/Var2Data";
    const ByteView meta = viewOf(streams.varMeta), data = viewOf(streams.var2Data);
    constexpr std::size_t mostReads = 8, some = 65'536; // a sound element is read twice at most
    _bytesLeft = mostReads * data.size() + some;
    if (!hasHeader(streams.varMeta, kVarMetaHeader, metaName, complaints))
        return;
    if (*meta.u32(20) != data.size())
        complaints.add(metaName, "the size of Var2Data in the header is not the stream's",
                       fmt::format("{} instead of {}", *meta.u32(20), data.size()));
    const std::size_t counted = *meta.u32(8), present = (meta.size() - kVarMetaHeader) / kVarMetaRecord;
    if (counted > present)
        complaints.add(metaName, "fewer records than counted", fmt::format("{} of {}", present, counted));
    const std::size_t count = std::min(counted, present);
    _elements.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const ByteView record = meta.part(kVarMetaHeader + i * kVarMetaRecord, kVarMetaRecord);
        const std::uint32_t owner = *record.u32(0), offset = *record.u32(4);
        const std::uint16_t type = *record.u16(8);
        const auto size = data.u32(offset);
        if (!size || !data.has(std::size_t{offset} + 4, *size)) {
            complaints.add(dataName, "an element stands outside the stream",
                           fmt::format("type {} of {} at {}", type, owner, offset));
            continue;
        }
        _elements.push_back(
            {static_cast<std::uint64_t>(owner) << 16 | type, data.part(std::size_t{offset} + 4, *size)});
    }
    std::ranges::stable_sort(_elements, {}, &Element::key);
    for (std::size_t i = 1; i < _elements.size(); ++i)
        if (_elements[i].key == _elements[i - 1].key)
            complaints.add(metaName, "two records name the same element",
                           fmt::format("type {} of {}", _elements[i].key & 0xFFFF, _elements[i].key >> 16));
}

VarData::Owned VarData::elementsOf(std::uint32_t owner) const {
    const auto first = std::ranges::lower_bound(_elements, std::uint64_t{owner} << 16, {}, &Element::key);
    const auto end = std::ranges::lower_bound(_elements, (std::uint64_t{owner} + 1) << 16, {}, &Element::key);
    return {first, end};
}

ByteView VarData::find(Owned elements, std::uint16_t type) const {
    const auto typeOf = [](const Element& element) { return static_cast<std::uint16_t>(element.key & 0xFFFF); };
    const auto found = std::ranges::lower_bound(elements, type, {}, typeOf);
    if (found == elements.end() || typeOf(*found) != type || _bytesLeft == 0)
        return {};
    _bytesLeft -= std::min(_bytesLeft, found->payload.size());
    return found->payload;
}

void VarData::checkOwners(const std::vector<std::uint32_t>& ids, const std::string& where,
                          Complaints& complaints) const {
    if (_bytesLeft == 0)
        complaints.add(where + "/Var2Data", "elements are shared by so many rows that the rest is left out");
    for (const Element& element : _elements) {
        const auto owner = static_cast<std::uint32_t>(element.key >> 16);
        if (!std::ranges::binary_search(ids, owner))
            complaints.add(where + "/VarMeta", "an element belongs to no row",
                           fmt::format("type {} of {}", element.key & 0xFFFF, owner));
    }
}

namespace {

// One pair of a meta stream and its data: for each record its bits and its row.
class RowBlock {
public:
    RowBlock(const std::optional<Bytes>& meta, const std::optional<Bytes>& data, std::size_t recordSize,
             std::string metaName, Complaints& complaints)
        : _meta(viewOf(meta)), _data(viewOf(data)), _recordSize(recordSize), _name(std::move(metaName)) {
        if (!hasHeader(meta, kFixedMetaHeader, _name, complaints))
            return;
        if (*_meta.u32(12) != _data.size())
            complaints.add(_name, "the size of the data in the header is not the stream's",
                           fmt::format("{} instead of {}", *_meta.u32(12), _data.size()));
        const std::size_t counted = *_meta.u32(8), present = (_meta.size() - kFixedMetaHeader) / recordSize;
        if (_meta.size() - kFixedMetaHeader != counted * recordSize)
            complaints.add(
                _name, "the records do not fill the stream",
                fmt::format("{} records of {} bytes in {}", counted, recordSize, _meta.size() - kFixedMetaHeader));
        _count = std::min(counted, present);
        findEnds(complaints);
    }

    [[nodiscard]] std::size_t count() const noexcept { return _count; }
    [[nodiscard]] ByteView record(std::size_t number) const {
        return number < _count ? _meta.part(kFixedMetaHeader + number * _recordSize, _recordSize) : ByteView();
    }

    // A row reaches to the next offset that any record names, or to the end.
    [[nodiscard]] ByteView row(std::size_t number, Complaints& complaints) const {
        if (number >= _count)
            return {};
        const std::uint32_t offset = *record(number).u32(4);
        if (offset >= _data.size()) {
            complaints.add(_name, "a record has no row: its offset is outside the data",
                           fmt::format("record {} at {}", number, offset));
            return {};
        }
        const auto end = std::ranges::upper_bound(_offsets, offset);
        return _data.part(offset, end == _offsets.end() ? SIZE_MAX : *end - offset);
    }

private:
    void findEnds(Complaints& complaints) {
        _offsets.reserve(_count);
        for (std::size_t i = 0; i < _count; ++i)
            _offsets.push_back(*record(i).u32(4));
        std::ranges::sort(_offsets);
        for (std::size_t i = 1; i < _offsets.size(); ++i)
            if (_offsets[i] == _offsets[i - 1])
                complaints.add(_name, "two records name the same row", fmt::format("at {}", _offsets[i]));
    }

    ByteView _meta, _data;
    std::size_t _recordSize;
    std::string _name;
    std::size_t _count = 0;
    std::vector<std::uint32_t> _offsets;
};

} // namespace

std::vector<RawRow> readRows(const RowStreams& streams, RecordSizes sizes, const std::string& where,
                             Complaints& complaints) {
    const RowBlock first(streams.fixedMeta, streams.fixedData, sizes.first, where + "/FixedMeta", complaints);
    const RowBlock second(streams.fixed2Meta, streams.fixed2Data, sizes.second, where + "/Fixed2Meta", complaints);
    if (first.count() != second.count())
        complaints.add(where, "the two blocks have different numbers of records",
                       fmt::format("{} and {}", first.count(), second.count()));
    std::vector<RawRow> rows;
    rows.reserve(first.count());
    for (std::size_t i = 0; i < first.count(); ++i) {
        const ByteView record = first.record(i);
        rows.push_back({.number = i,
                        .marks = *record.u16(0),
                        .elementCount = *record.u16(2),
                        .first = first.row(i, complaints),
                        .second = second.row(i, complaints),
                        .firstBits = record.part(kRecordHead),
                        .secondBits = second.record(i).part(kRecordHead)});
    }
    return rows;
}

} // namespace brackwater::inspect
