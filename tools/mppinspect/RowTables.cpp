#include "Decoders.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::inspect {

namespace {

constexpr std::uint16_t kHeaderMark = 4, kDeletedMark = 2;
constexpr std::uint32_t kNamesType = 0x04400001;

} // namespace

RowStreams readStreams(const DecodeContext& context, const char* storage) {
    const auto stream = [&](std::string_view name) {
        return context.file.read({context.out.folder, storage, name}, context.complaints());
    };
    if (!context.file.has({context.out.folder, storage}))
        context.complaints().add(storage, "the storage is missing");
    return {.varMeta = stream("VarMeta"),
            .var2Data = stream("Var2Data"),
            .fixedMeta = stream("FixedMeta"),
            .fixedData = stream("FixedData"),
            .fixed2Meta = stream("Fixed2Meta"),
            .fixed2Data = stream("Fixed2Data"),
            .props = stream("Props")};
}

RowTable readTable(const DecodeContext& context, const RowKind& kind, const RowStreams& streams) {
    RowTable table{.where = kind.storage, .map = {}, .var = {}, .rows = {}};
    const Property* map = context.props.find(kind.mapType);
    if (map == nullptr)
        context.complaints().add(table.where, "no field map: its rows cannot be read");
    else
        table.map = FieldMap(map->payload, fmt::format("Props/0x{:08X}", kind.mapType), context.complaints());
    table.var = VarData(streams, table.where, context.complaints());
    table.rows = readRows(streams, kind.records, table.where, context.complaints());
    return table;
}

bool isHeaderRow(const RawRow& row) { return row.marks == kHeaderMark; }

bool isDeleted(const RawRow& row) { return (row.marks & kDeletedMark) != 0; }

bool fitsMap(const RowTable& table, const RawRow& row, ShortRow ifShort, Complaints& complaints) {
    if (table.map.empty())
        return false;
    const auto complain = [&](std::string_view block, std::size_t size, std::size_t needed, std::string_view verdict) {
        complaints.add(
            table.where,
            fmt::format("a row{} is shorter than the {} bytes that the field map needs{}", block, needed, verdict),
            fmt::format("{} of {}", rowName(row), size));
    };
    if (row.first.size() < table.map.firstSize()) {
        complain("", row.first.size(), table.map.firstSize(),
                 ifShort == ShortRow::Dropped ? ": readers drop it" : ": what is missing counts as zero");
        if (ifShort == ShortRow::Dropped)
            return false;
    }
    if (row.second.size() < table.map.secondSize())
        complain(" of the second block", row.second.size(), table.map.secondSize(), "");
    return true;
}

std::string rowName(const RawRow& row) { return fmt::format("row {}", row.number); }

std::map<std::size_t, std::string> readTextNames(const RowStreams& streams, const std::string& where,
                                                 std::span<const std::uint16_t> textFields, Complaints& complaints) {
    std::map<std::size_t, std::string> names;
    if (!streams.props)
        return names;
    const PropsFrame props(*streams.props, where + "/Props", complaints);
    const ByteView block = props.payload(kNamesType);
    const auto counted = block.u32(8);
    if (!counted)
        return names;
    constexpr std::size_t head = 12, entrySize = 8, offsetsCountFrom = 4;
    const std::size_t count = std::min<std::size_t>(*counted, (block.size() - head) / entrySize);
    if (count < *counted)
        complaints.add(where + "/Props", "fewer field names than counted", fmt::format("{} of {}", count, *counted));
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint16_t field = *block.u16(head + i * entrySize);
        const std::size_t offset = offsetsCountFrom + std::size_t{*block.u32(head + i * entrySize + 4)};
        if (!block.has(offset, 2)) {
            complaints.add(where + "/Props", "a field name stands outside its block", fmt::format("field {}", field));
            continue;
        }
        const auto known = std::ranges::find(textFields, field);
        const auto position = static_cast<std::size_t>(known - textFields.begin()) + 1;
        if (known != textFields.end() && !names.contains(position)) // names may share one long text
            names.emplace(position, block.part(offset).text16());
    }
    return names;
}

TextFields readTexts(const RowReader& row, std::span<const std::uint16_t> textFields) {
    TextFields texts;
    for (std::size_t i = 0; i < textFields.size(); ++i)
        if (std::string text = row.text(textFields[i]); !text.empty())
            texts.emplace(i + 1, std::move(text));
    return texts;
}

void complainOfRepeatedIds(std::vector<std::uint32_t>& ids, const std::string& where, Complaints& complaints) {
    std::ranges::sort(ids);
    for (std::size_t i = 1; i < ids.size(); ++i)
        if (ids[i] == ids[i - 1])
            complaints.add(where, "two rows have the same unique id", fmt::format("{}", ids[i]));
}

} // namespace brackwater::inspect
