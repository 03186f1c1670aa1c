#include "ConsistencyCheck.h"

#include "RowSet.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>

namespace brackwater::inspect {

namespace {

constexpr std::string_view kRowFolder = "   112", kViewFolder = "   212";

// Properties by the number of a kind of row or collection, which stands in their low digits.
constexpr std::uint32_t kCountType = 0x01000000, kVar2DataSizeType = 0x00010000;
constexpr std::uint32_t kFirstSizeType = 0x00400000, kSecondSizeType = 0x00040000;

struct Kind {
    const char* storage;
    std::uint32_t number;
    RecordSizes records;
};
constexpr std::array<Kind, 6> kRowKinds{{{"TBkndTask", 1, {47, 86}},
                                         {"TBkndRsc", 2, {37, 49}},
                                         {"TBkndCal", 3, {10, 9}},
                                         {"TBkndAssn", 4, {34, 53}},
                                         {"TBkndCons", 5, {10, 9}},
                                         {"TBkndOutlCode", 8, {10, 10}}}};
constexpr std::size_t kResources = 1, kCalendars = 2;

// The records of entry lists are longer than those of the others.
constexpr std::array<Kind, 10> kCollections{{{"CV_iew", 1, {10, 0}},
                                             {"CFilter", 2, {10, 0}},
                                             {"CTable", 3, {10, 0}},
                                             {"CReport", 4, {10, 0}},
                                             {"CUdm", 5, {10, 0}},
                                             {"CEdl", 7, {11, 0}},
                                             {"CCommandBar", 8, {10, 0}},
                                             {"CMap", 9, {10, 0}},
                                             {"CVba", 10, {10, 0}},
                                             {"CGrouping", 11, {10, 0}}}};
constexpr std::size_t kViews = 0;

/// Types of properties from the first to the last that all real files have.
struct TypeRange {
    std::uint32_t first, last;
};
constexpr std::array kTypesOfRealFiles{
    TypeRange{0x00010001, 0x00010005}, TypeRange{0x00010008, 0x00010008}, TypeRange{0x00020014, 0x00020019},
    TypeRange{0x00030001, 0x00030005}, TypeRange{0x00030008, 0x00030008}, TypeRange{0x00040001, 0x00040005},
    TypeRange{0x00040008, 0x00040008}, TypeRange{0x00050001, 0x00050005}, TypeRange{0x00050008, 0x00050008},
    TypeRange{0x00400001, 0x00400005}, TypeRange{0x00400008, 0x00400008}, TypeRange{0x00800001, 0x00800005},
    TypeRange{0x00800008, 0x00800008}, TypeRange{0x01000001, 0x01000005}, TypeRange{0x01000008, 0x01000008},
    TypeRange{0x02000001, 0x02000005}, TypeRange{0x02000008, 0x02000008}, TypeRange{0x02400000, 0x02400004},
    TypeRange{0x02400006, 0x02400008}, TypeRange{0x0240000C, 0x0240000C}, TypeRange{0x0240000E, 0x02400021},
    TypeRange{0x02400024, 0x0240003F}, TypeRange{0x02400041, 0x02400047}, TypeRange{0x0240004B, 0x0240004B},
    TypeRange{0x0240004D, 0x0240005E}, TypeRange{0x02400084, 0x02400084}, TypeRange{0x024000A2, 0x024000A2},
    TypeRange{0x024000A4, 0x024000A5}, TypeRange{0x024000AE, 0x024000AF}, TypeRange{0x024003E8, 0x024003E8},
    TypeRange{0x02401388, 0x024013A5}, TypeRange{0x024013A8, 0x024013A9}, TypeRange{0x024013AB, 0x024013B3},
    TypeRange{0x024013B5, 0x024013BB}, TypeRange{0x024013BD, 0x024013C3}, TypeRange{0x024013C5, 0x024013C5},
    TypeRange{0x03000014, 0x03000019}, TypeRange{0x04000001, 0x04000005}, TypeRange{0x04000008, 0x04000008}};

/// The streams of one storage with its decoded rows.
class Storage {
public:
    Storage(const CompoundFile& file, std::string_view folder, const Kind& kind);

    [[nodiscard]] const std::vector<RawRow>& rows() const noexcept { return _rows; }
    [[nodiscard]] const VarData& var() const noexcept { return _var; }
    [[nodiscard]] bool isPresent() const noexcept { return _streams.fixedMeta.has_value(); }
    [[nodiscard]] std::optional<std::size_t> var2DataSize() const {
        return _streams.var2Data ? std::optional(_streams.var2Data->size()) : std::nullopt;
    }

private:
    RowStreams _streams;
    std::vector<RawRow> _rows;
    VarData _var;
};

// What does not fit in the streams has been told when they were decoded.
Storage::Storage(const CompoundFile& file, std::string_view folder, const Kind& kind) {
    Complaints ignored;
    const auto stream = [&](std::string_view name) { return file.read({folder, kind.storage, name}, ignored); };
    if (!file.has({folder, kind.storage, "FixedMeta"}))
        return;
    const auto streamIfAny = [&](std::string_view name) {
        return file.has({folder, kind.storage, name}) ? stream(name) : std::nullopt;
    };
    _streams = {.varMeta = streamIfAny("VarMeta"),
                .var2Data = streamIfAny("Var2Data"),
                .fixedMeta = streamIfAny("FixedMeta"),
                .fixedData = streamIfAny("FixedData"),
                .fixed2Meta = kind.records.second > 0 ? streamIfAny("Fixed2Meta") : std::nullopt,
                .fixed2Data = kind.records.second > 0 ? streamIfAny("Fixed2Data") : std::nullopt,
                .props = std::nullopt};
    _rows = readRows(_streams, kind.records, kind.storage, ignored);
    _var = VarData(_streams, kind.storage, ignored);
}

/// Whether the row holds values: header rows have the mark 4 and no elements.
bool holdsValues(const RawRow& row) { return row.marks != 4 && row.first.u32(0).has_value(); }

std::string rowPlace(const RawRow& row, std::uint64_t found, std::uint64_t expected) {
    return fmt::format("row {}: {}, not {}", row.number, found, expected);
}

class ConsistencyCheck {
public:
    ConsistencyCheck(const CompoundFile& file, const ProjectFile& project, Complaints& out)
        : _file(file), _project(project), _out(out) {}

    void run();

private:
    void checkCounts(const Kind& kind, const Storage& storage, const PropsFrame& props);
    void checkElementCounts(const Kind& kind, const Storage& storage);
    void checkRowSizes(const Kind& kind, const Storage& storage, const PropsFrame& props);
    void checkCalendarsOfResources(const Storage& resources);
    void checkExceptions(const Storage& calendars);
    void checkException(ByteView record, std::set<std::uint32_t>& numbers);
    void checkTypes(const PropsFrame& props);
    void checkViewFolder();
    void checkViews(const Storage& views);

    const CompoundFile& _file;
    const ProjectFile& _project;
    Complaints& _out;
};

void ConsistencyCheck::run() {
    Complaints ignored;
    if (const auto stream = _file.read({kRowFolder, "Props"}, ignored)) {
        const PropsFrame props(*stream, "Props", ignored);
        for (std::size_t i = 0; i < kRowKinds.size(); ++i) {
            const Storage storage(_file, kRowFolder, kRowKinds[i]);
            if (!storage.isPresent())
                continue;
            checkCounts(kRowKinds[i], storage, props);
            checkElementCounts(kRowKinds[i], storage);
            checkRowSizes(kRowKinds[i], storage, props);
            if (i == kResources)
                checkCalendarsOfResources(storage);
            if (i == kCalendars)
                checkExceptions(storage);
        }
        checkTypes(props);
    }
    checkViewFolder();
}

void ConsistencyCheck::checkCounts(const Kind& kind, const Storage& storage, const PropsFrame& props) {
    const auto check = [&](std::uint32_t type, std::size_t expected, const char* what) {
        const auto told = props.payload(type | kind.number).u32(0);
        if (told && *told != expected)
            _out.add(kind.storage, fmt::format("the properties tell another {}", what),
                     fmt::format("{}, not {}", *told, expected));
    };
    check(kCountType, storage.rows().size(), "number of rows");
    if (const auto size = storage.var2DataSize())
        check(kVar2DataSizeType, *size, "size of Var2Data");
}

void ConsistencyCheck::checkElementCounts(const Kind& kind, const Storage& storage) {
    for (const RawRow& row : storage.rows()) {
        if (!holdsValues(row))
            continue;
        const std::size_t elements = storage.var().elementsOf(*row.first.u32(0)).size();
        if (row.elementCount != elements)
            _out.add(kind.storage, "the record of a row tells another number of elements than it has",
                     rowPlace(row, row.elementCount, elements));
    }
}

// A row may end early in its first block, where what is left out is empty.
void ConsistencyCheck::checkRowSizes(const Kind& kind, const Storage& storage, const PropsFrame& props) {
    const auto first = props.payload(kFirstSizeType | kind.number).u32(0);
    const auto second = props.payload(kSecondSizeType | kind.number).u32(0);
    for (const RawRow& row : storage.rows()) {
        if (row.marks == 4)
            continue;
        if (first && row.first.size() > *first)
            _out.add(kind.storage, "a row is longer than the properties tell", rowPlace(row, row.first.size(), *first));
        if (second && row.second.size() != *second)
            _out.add(kind.storage, "a row of the second block has another size than the properties tell",
                     rowPlace(row, row.second.size(), *second));
    }
}

void ConsistencyCheck::checkCalendarsOfResources(const Storage& resources) {
    constexpr std::size_t kCalendarId = 16;
    std::map<std::uint32_t, std::uint32_t> calendarOf;
    for (const Calendar& calendar : _project.calendars)
        if (calendar.resourceId)
            calendarOf.emplace(*calendar.resourceId, calendar.id);
    for (const RawRow& row : resources.rows()) {
        if (!holdsValues(row))
            continue;
        const auto told = row.first.u32(kCalendarId);
        const auto found = calendarOf.find(*row.first.u32(0));
        if (told && found != calendarOf.end() && *told != found->second)
            _out.add("TBkndRsc", "a row names another calendar than the resource's own",
                     rowPlace(row, *told, found->second));
    }
}

// A calendar's block: seven days, the number of exceptions, then the exceptions, each with its name behind it.
void ConsistencyCheck::checkExceptions(const Storage& calendars) {
    constexpr std::uint16_t kBlockType = 8;
    constexpr std::size_t kCountAt = std::size_t{7} * 60, kRecordSize = 88;
    std::set<std::uint32_t> numbers;
    for (const RawRow& row : calendars.rows()) {
        if (!holdsValues(row))
            continue;
        const ByteView block = calendars.var().find(calendars.var().elementsOf(*row.first.u32(0)), kBlockType);
        std::size_t offset = kCountAt + 4;
        for (std::uint32_t left = block.u32(kCountAt).value_or(0); left > 0 && block.has(offset, kRecordSize + 4);
             --left) {
            checkException(block.part(offset, kRecordSize), numbers);
            const std::size_t nameSize = *block.u32(offset + kRecordSize);
            offset += kRecordSize + 4 + nameSize + nameSize % 4;
        }
    }
}

void ConsistencyCheck::checkException(ByteView record, std::set<std::uint32_t>& numbers) {
    constexpr std::size_t kFirstDay = 0, kLastDay = 2, kDays = 4, kKind = 72, kNumber = 80;
    constexpr std::uint32_t kDaily = 1;
    const std::uint32_t number = *record.u32(kNumber);
    if (!numbers.insert(number).second)
        _out.add("TBkndCal", "two exceptions of calendars have the same number", fmt::format("number {}", number));
    const unsigned days = static_cast<unsigned>(*record.u16(kLastDay)) - *record.u16(kFirstDay) + 1U;
    if (*record.u32(kKind) == kDaily && *record.u16(kDays) != days)
        _out.add("TBkndCal", "an exception tells another number of days than it has",
                 fmt::format("number {}: {}, not {}", number, *record.u16(kDays), days));
}

void ConsistencyCheck::checkTypes(const PropsFrame& props) {
    for (const auto& [first, last] : kTypesOfRealFiles)
        for (std::uint32_t type = first; type <= last; ++type)
            if (props.find(type) == nullptr)
                _out.add("Props", "a property is absent that all real files have", fmt::format("0x{:08X}", type));
}

void ConsistencyCheck::checkViewFolder() {
    if (!_file.has({kViewFolder}))
        return; // told when the file was decoded
    Complaints ignored;
    const auto stream = _file.has({kViewFolder, "Props"}) ? _file.read({kViewFolder, "Props"}, ignored) : std::nullopt;
    if (!stream)
        _out.add("212", "an entry is absent that all real files have", "Props");
    const PropsFrame props = stream ? PropsFrame(*stream, "212/Props", ignored) : PropsFrame();
    for (std::size_t i = 0; i < kCollections.size(); ++i) {
        const Kind& kind = kCollections[i];
        if (!_file.has({kViewFolder, kind.storage}))
            _out.add("212", "an entry is absent that all real files have", kind.storage);
        const Storage storage(_file, kViewFolder, kind);
        if (!storage.isPresent())
            continue;
        checkCounts(kind, storage, props);
        checkElementCounts(kind, storage);
        if (i == kViews)
            checkViews(storage);
    }
}

void ConsistencyCheck::checkViews(const Storage& views) {
    constexpr std::size_t kKind = 112;
    for (const RawRow& row : views.rows())
        if (row.first.u16(kKind).value_or(0) == 0)
            _out.add("CV_iew", "a view is of no known kind", fmt::format("row {}", row.number));
}

} // namespace

void checkConsistency(const CompoundFile& file, const ProjectFile& project, Findings& findings) {
    if (project.folder == kRowFolder)
        ConsistencyCheck(file, project, findings.warnings).run();
}

} // namespace brackwater::inspect
