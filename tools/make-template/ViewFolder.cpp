#include "ViewFolder.h"

#include "PropsFrame.h"
#include "TemplateValues.h"

#include <fmt/format.h>

namespace brackwater::layout {

namespace {

/// A collection of the view folder: its rows, the tail of each row's record, and its counts in the properties.
struct Collection {
    const char* name;
    std::uint32_t number;
    std::uint32_t rowSize;
    std::uint32_t mapRows; ///< fields that a row has in real files
    std::vector<Bytes> rows;
    Bytes flags; ///< tail of the record of a row
    bool hasVar2Data = true;
    bool hasStreams = true;
};

constexpr std::size_t kNameSize = 104; ///< including terminator and zeros

Bytes filled(ByteBuilder row, std::size_t size) { return row.zeroes(size - row.size()).take(); }

ByteBuilder named(std::uint32_t id, std::string_view name) {
    ByteBuilder row;
    row.u32(id).text16(name);
    row.zeroes(4 + kNameSize - row.size());
    return row;
}

// The second number is the kind of view, 1 a Gantt chart.
Bytes ganttChart() {
    constexpr std::uint16_t anyScreen = 2, gantt = 1, flags = 0xC0;
    return named(1, "&Gantt Chart").u16(anyScreen).u16(0).u16(gantt).u16(flags).zeroes(6).bytes(kGanttChartGuid).take();
}

Bytes entryTable() {
    constexpr std::size_t rowSize = 230;
    return filled(named(1, "&Entry"), rowSize);
}

Bytes entryList() {
    constexpr std::size_t rowSize = 160;
    return filled(std::move(ByteBuilder().u32(1)), rowSize);
}

// In the order of real files.
std::vector<Collection> collections() {
    return {
        {.name = "CV_iew",
         .number = 1,
         .rowSize = 138,
         .mapRows = 11,
         .rows = {ganttChart()},
         .flags = ByteBuilder().u16(0x06FF).take()},
        {.name = "CFilter", .number = 2, .rowSize = 230, .mapRows = 8, .rows = {}, .flags = {}},
        {.name = "CTable",
         .number = 3,
         .rowSize = 230,
         .mapRows = 8,
         .rows = {entryTable()},
         .flags = ByteBuilder().u16(0x00DF).take()},
        {.name = "CReport", .number = 4, .rowSize = 134, .mapRows = 8, .rows = {}, .flags = {}},
        {.name = "CUdm", .number = 5, .rowSize = 128, .mapRows = 8, .rows = {}, .flags = {}},
        {.name = "CEdl",
         .number = 7,
         .rowSize = 160,
         .mapRows = 16,
         .rows = {entryList()},
         .flags = ByteBuilder().u16(0xBFF7).u8(0).take()},
        {.name = "CCommandBar",
         .number = 8,
         .rowSize = 20,
         .mapRows = 3,
         .rows = {},
         .flags = {},
         .hasVar2Data = false},
        {.name = "CMap", .number = 9, .rowSize = 126, .mapRows = 7, .rows = {}, .flags = {}},
        {.name = "CVba", .number = 10, .rowSize = 0, .mapRows = 0, .rows = {}, .flags = {}, .hasStreams = false},
        {.name = "CGrouping", .number = 11, .rowSize = 230, .mapRows = 8, .rows = {}, .flags = {}},
    };
}

Bytes emptyVarMeta() { return ByteBuilder().u32(0xFADFADBA).zeroes(20).take(); }

// A record: the number of the row's elements, here none, and the row's offset.
Bytes fixedMeta(const Collection& collection) {
    ByteBuilder meta;
    const auto count = static_cast<std::uint32_t>(collection.rows.size());
    meta.u32(0xFADFADBA).u32(4).u32(count).u32(count * collection.rowSize);
    for (std::uint32_t i = 0; i < count; ++i)
        meta.u32(0).u32(i * collection.rowSize).bytes(collection.flags);
    return meta.take();
}

Bytes fixedData(const Collection& collection) {
    ByteBuilder data;
    for (const Bytes& row : collection.rows)
        data.bytes(row);
    return data.take();
}

Entry entryOf(const Collection& collection) {
    Entry storage = Entry::storage(collection.name, {});
    if (!collection.hasStreams)
        return storage;
    if (collection.hasVar2Data)
        storage.children.push_back(Entry::stream("Var2Data", {}));
    storage.children.push_back(Entry::stream("VarMeta", emptyVarMeta()));
    storage.children.push_back(Entry::stream("FixedData", fixedData(collection)));
    storage.children.push_back(Entry::stream("FixedMeta", fixedMeta(collection)));
    return storage;
}

Bytes viewProps(const std::vector<Collection>& all) {
    PropsFrame props(kProjectPropsMagic);
    std::string names;
    for (const Collection& collection : all)
        names += fmt::format("{}{}", names.empty() ? "" : ",", collection.name);
    props.text(0x024003E8, names);
    for (const Collection& collection : all) {
        const std::uint32_t n = collection.number;
        props.number32(0x01000000 | n, static_cast<std::uint32_t>(collection.rows.size()));
        props.number32(0x02000000 | n, 0); // meaning unknown
        props.number32(0x00800000 | n, 0); // meaning unknown
        props.number32(0x00010000 | n, 0); // bytes of Var2Data
        props.number32(0x04000000 | n, collection.mapRows);
        props.number32(0x00400000 | n, collection.rowSize);
    }
    return props.take();
}

} // namespace

Entry viewFolder() {
    const std::vector<Collection> all = collections();
    Entry folder = Entry::storage("   212", {});
    for (const Collection& collection : all)
        folder.children.push_back(entryOf(collection));
    folder.children.push_back(Entry::stream("Props", viewProps(all)));
    return folder;
}

} // namespace brackwater::layout
