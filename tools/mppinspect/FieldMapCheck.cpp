#include "Check.h"
#include "Decoders.h"

#include <fmt/format.h>

#include <array>

namespace brackwater::inspect {

namespace {

struct ExpectedField {
    std::uint16_t id, offset;
    std::string_view name;
};

/// The rows that an export writes. It copies the field map from the template, so the two must agree; the numbers here
/// are those of the 2007 format, stated once more and not taken from the writers.
struct ExpectedRows {
    RowKind kind;
    std::size_t firstSize, secondSize; ///< bytes of a row in FixedData and Fixed2Data
    std::span<const ExpectedField> first, second;
};

constexpr std::array kTaskFields{ExpectedField{86, 0, "unique id"},
                                 ExpectedField{23, 4, "id"},
                                 ExpectedField{38, 8, "early finish"},
                                 ExpectedField{39, 12, "late start"},
                                 ExpectedField{100, 16, "stop"},
                                 ExpectedField{99, 20, "resume"},
                                 ExpectedField{160, 36, "parent"},
                                 ExpectedField{249, 40, "outline level"},
                                 ExpectedField{29, 60, "duration"},
                                 ExpectedField{181, 64, "duration units"},
                                 ExpectedField{28, 66, "actual duration"},
                                 ExpectedField{31, 70, "remaining duration"},
                                 ExpectedField{27, 74, "baseline duration"},
                                 ExpectedField{179, 78, "baseline duration units"},
                                 ExpectedField{17, 80, "constraint type"},
                                 ExpectedField{35, 88, "start"},
                                 ExpectedField{36, 92, "finish"},
                                 ExpectedField{41, 96, "actual start"},
                                 ExpectedField{42, 100, "actual finish"},
                                 ExpectedField{43, 104, "baseline start"},
                                 ExpectedField{44, 108, "baseline finish"},
                                 ExpectedField{18, 112, "constraint date"},
                                 ExpectedField{25, 120, "priority"},
                                 ExpectedField{32, 122, "percentage complete"},
                                 ExpectedField{33, 124, "percentage of work complete"},
                                 ExpectedField{128, 126, "type"},
                                 ExpectedField{93, 130, "created"},
                                 ExpectedField{37, 148, "early start"},
                                 ExpectedField{40, 152, "late finish"},
                                 ExpectedField{401, 160, "calendar"},
                                 ExpectedField{437, 164, "deadline"},
                                 ExpectedField{0, 168, "work"},
                                 ExpectedField{1, 176, "baseline work"},
                                 ExpectedField{2, 184, "actual work"},
                                 ExpectedField{4, 192, "remaining work"},
                                 ExpectedField{5, 200, "cost"},
                                 ExpectedField{8, 208, "fixed cost"},
                                 ExpectedField{7, 216, "actual cost"},
                                 ExpectedField{10, 224, "remaining cost"},
                                 ExpectedField{6, 232, "baseline cost"}};
constexpr std::array kTaskSecond{ExpectedField{1143, 0, "GUID"}, ExpectedField{1145, 16, "place in the sheet"},
                                 ExpectedField{1151, 24, "GUID of the parent"}};

constexpr std::array kResourceFields{
    ExpectedField{27, 0, "unique id"},       ExpectedField{0, 4, "id"},
    ExpectedField{70, 8, "rate units"},      ExpectedField{71, 10, "overtime rate units"},
    ExpectedField{19, 12, "accrual"},        ExpectedField{57, 20, "available from"},
    ExpectedField{58, 24, "available to"},   ExpectedField{6, 28, "rate"},
    ExpectedField{7, 36, "overtime rate"},   ExpectedField{4, 44, "maximum units"},
    ExpectedField{13, 52, "work"},           ExpectedField{14, 60, "actual work"},
    ExpectedField{15, 68, "baseline work"},  ExpectedField{18, 84, "cost per use"},
    ExpectedField{22, 92, "remaining work"}, ExpectedField{11, 132, "actual cost"},
    ExpectedField{12, 140, "cost"},          ExpectedField{17, 148, "baseline cost"},
    ExpectedField{21, 156, "remaining cost"}};
constexpr std::array kResourceSecond{ExpectedField{728, 0, "GUID"}, ExpectedField{730, 16, "place in the sheet"}};

constexpr std::array kAssignmentFields{ExpectedField{0, 0, "unique id"},
                                       ExpectedField{1, 4, "task"},
                                       ExpectedField{2, 8, "resource"},
                                       ExpectedField{20, 12, "start"},
                                       ExpectedField{21, 16, "finish"},
                                       ExpectedField{24, 20, "resume"},
                                       ExpectedField{25, 24, "delay"},
                                       ExpectedField{146, 36, "baseline start"},
                                       ExpectedField{147, 40, "baseline finish"},
                                       ExpectedField{264, 44, "stop"},
                                       ExpectedField{7, 54, "units"},
                                       ExpectedField{8, 62, "work"},
                                       ExpectedField{10, 70, "actual work"},
                                       ExpectedField{11, 78, "regular work"},
                                       ExpectedField{12, 86, "remaining work"},
                                       ExpectedField{16, 94, "baseline work"},
                                       ExpectedField{26, 102, "cost"},
                                       ExpectedField{28, 110, "actual cost"},
                                       ExpectedField{29, 118, "remaining cost"},
                                       ExpectedField{32, 126, "baseline cost"}};
constexpr std::array kAssignmentSecond{ExpectedField{636, 0, "GUID"}, ExpectedField{637, 16, "GUID of the task"},
                                       ExpectedField{638, 32, "GUID of the resource"}};

const std::array kExpected{
    ExpectedRows{{"TBkndTask", 0x00020014, {47, 86}, 1}, 264, 54, kTaskFields, kTaskSecond},
    ExpectedRows{{"TBkndRsc", 0x00020015, {37, 49}, 2}, 188, 40, kResourceFields, kResourceSecond},
    ExpectedRows{{"TBkndAssn", 0x00020017, {34, 53}, 4}, 142, 48, kAssignmentFields, kAssignmentSecond}};

void checkPlaces(const FieldMap& map, FieldPlace::Where block, const ExpectedRows& rows,
                 std::span<const ExpectedField> fields, Findings& findings) {
    for (const ExpectedField& field : fields) {
        const FieldPlace* place = map.find(field.id);
        if (place == nullptr)
            findings.errors.add(rows.kind.storage, "the field map lacks a field of an export: readers do not see it",
                                std::string(field.name));
        else if (place->where != block)
            findings.errors.add(rows.kind.storage,
                                "the field map has a field in another block than an export: readers misread it",
                                std::string(field.name));
        else if (place->offset != field.offset)
            findings.errors.add(rows.kind.storage,
                                "the field map has a field elsewhere than an export: readers misread it",
                                fmt::format("{} at {} instead of {}", field.name, place->offset, field.offset));
    }
}

void checkSizes(const FieldMap& map, const PropsFrame& props, const ExpectedRows& rows, bool isPlan,
                Findings& findings) {
    constexpr std::uint32_t sizeOfFirstRow = 0x00400000; // the number of the kind added
    const auto stated = props.payload(sizeOfFirstRow + rows.kind.bookkeeping).u32(0);
    if (stated && *stated != rows.firstSize)
        findings.errors.add(rows.kind.storage, "the file has rows of another size than an export",
                            fmt::format("{} bytes instead of {}", *stated, rows.firstSize));
    if (map.firstSize() > rows.firstSize)
        findings.errors.add(rows.kind.storage,
                            "the field map needs more bytes than an export's row has: readers "
                            "drop every row",
                            fmt::format("{} of {}", map.firstSize(), rows.firstSize));
    if (!isPlan && map.secondSize() > rows.secondSize)
        findings.notes.add(rows.kind.storage,
                           fmt::format("the field map has fields behind the {} bytes of an export's second block: "
                                       "they stay empty",
                                       rows.secondSize));
}

// The size of the last row of FixedData that is no header; 0 without one.
std::size_t sizeOfRows(const CompoundFile& file, const ProjectFile& project, const ExpectedRows& rows) {
    ProjectFile scratch; // what there is to complain of has been said by the decoding
    scratch.folder = project.folder;
    const PropsFrame none;
    const RowStreams streams = readStreams({file, none, scratch}, rows.kind.storage);
    const std::vector<RawRow> raw = readRows(streams, rows.kind.records, rows.kind.storage, scratch.complaints);
    constexpr std::size_t headerOrBlank = 16;
    for (auto row = raw.rbegin(); row != raw.rend(); ++row)
        if (row->first.size() > headerOrBlank)
            return row->first.size();
    return 0;
}

} // namespace

void checkFieldMaps(const CompoundFile& file, const ProjectFile& project, Findings& findings) {
    Complaints said; // by the decoding
    const auto stream = file.read({project.folder, "Props"}, said);
    if (!stream)
        return;
    const PropsFrame props(*stream, "Props", said);
    const bool isPlan = holdsPlan(project);
    for (const ExpectedRows& rows : kExpected) {
        // A plan whose rows have another size was not exported: they follow its own map, whatever that says.
        if (isPlan && sizeOfRows(file, project, rows) != rows.firstSize)
            continue;
        const Property* property = props.find(rows.kind.mapType);
        if (property == nullptr)
            continue;
        const FieldMap map(property->payload, rows.kind.storage, said);
        checkSizes(map, props, rows, isPlan, findings);
        checkPlaces(map, FieldPlace::Where::FirstBlock, rows, rows.first, findings);
        checkPlaces(map, FieldPlace::Where::SecondBlock, rows, rows.second, findings);
    }
}

} // namespace brackwater::inspect
