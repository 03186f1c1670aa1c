#include "FieldTable.h"

namespace brackwater::layout {

namespace {

using enum FieldKind;

void addFlags(std::vector<Field>& fields) {
    fields.insert(fields.end(), {
                                    flag(5, 0, 24, "milestone"),
                                    flag(6, 1, 19, "critical"),
                                    flag(8, 3, 133, "of the project"),
                                    flag(10, 5, 92, "summary"),
                                    flag(14, 9, 71, "marked"),
                                    flag(15, 10, 386, "not split"),
                                    flag(17, 20, 399, "ignore resource calendar"),
                                    flag(19, 26, 82, "rollup"),
                                    flag(23, 0, 109, "hide bar"),
                                    flag(28, 11, 132, "effort driven"),
                                    flag(33, 19, 211, "outline collapsed"),
                                    flag(36, 22, 199, "has notes"),
                                    flag(41, 27, 252, "leveling can split"),
                                    flag(42, 28, 253, "level assignments"),
                                    flag(43, 29, 379, "split"),
                                    flag(45, 5, 396, "estimated"),
                                });
}

// The rest of the 264 bytes of FixedData.
void addFirstBlock(std::vector<Field>& fields) {
    fields.insert(fields.end(), {
                                    first(46, 8, 38, Date, "early finish"),
                                    first(47, 12, 39, Date, "late start"),
                                    first(48, 16, 100, Date, "stop"),
                                    first(49, 20, 99, Date, "resume"),
                                    first(50, 24, 21, Number32, "free slack"),
                                    first(51, 28, 438, Number32, "start slack"),
                                    first(52, 32, 439, Number32, "finish slack"),
                                    first(53, 36, 160, Number32, "parent id"),
                                    first(54, 40, 249, Number16, "outline level"),
                                    first(61, 60, 29, Number32, "duration"),
                                    first(62, 64, 181, Number16, "duration units"),
                                    first(63, 66, 28, Number32, "actual duration"),
                                    first(64, 70, 31, Number32, "remaining duration"),
                                    first(65, 74, 27, Number32, "baseline duration"),
                                    first(66, 78, 179, Number16, "baseline duration units"),
                                    first(67, 80, 17, Number16, "constraint type"),
                                    first(68, 82, 20, Number32, "leveling delay"),
                                    first(69, 86, 178, Number16, "leveling delay units"),
                                    first(70, 88, 35, Date, "start"),
                                    first(71, 92, 36, Date, "finish"),
                                    first(72, 96, 41, Date, "actual start"),
                                    first(73, 100, 42, Date, "actual finish"),
                                    first(74, 104, 43, Date, "baseline start"),
                                    first(75, 108, 44, Date, "baseline finish"),
                                    first(76, 112, 18, Date, "constraint date"),
                                    first(77, 116, 101, Date, "resume no earlier than"),
                                    first(78, 120, 25, Number16, "priority"),
                                    first(79, 122, 32, Number16, "percentage complete"),
                                    first(80, 124, 33, Number16, "percentage of work complete"),
                                    first(81, 126, 128, Number16, "type"),
                                    first(82, 128, 200, Number16, "fixed cost accrual"),
                                    first(83, 130, 93, Date, "created"),
                                    first(84, 134, 202, Number16, "recurring"),
                                    first(85, 136, 369, Date, "preleveled start"),
                                    first(86, 140, 370, Date, "preleveled finish"),
                                    first(87, 144, 201, Block, "state bits"),
                                    first(88, 148, 37, Date, "early start"),
                                    first(89, 152, 40, Date, "late finish"),
                                    first(90, 156, 387, Date, "summary progress"),
                                    first(91, 160, 401, Number32, "calendar id"),
                                    first(92, 164, 437, Date, "deadline"),
                                    first(93, 168, 0, Scaled, "work"),
                                    first(94, 176, 1, Scaled, "baseline work"),
                                    first(95, 184, 2, Scaled, "actual work"),
                                    first(96, 192, 4, Scaled, "remaining work"),
                                    first(97, 200, 5, Scaled, "cost"),
                                    first(98, 208, 8, Scaled, "fixed cost"),
                                    first(99, 216, 7, Scaled, "actual cost"),
                                    first(100, 224, 10, Scaled, "remaining cost"),
                                    first(101, 232, 6, Scaled, "baseline cost"),
                                });
}

void addTextsAndNotes(std::vector<Field>& fields) {
    fields.push_back(variable(115, 14, Text, "title"));
    addTexts(fields, 118, {51, 54, 57, 60, 63, 66, 67, 68, 69, 70}, 194, 317);
    fields.push_back(variable(288, 15, Block, "notes"));
    fields.push_back(variable(302, 350, Block, "percent over time"));
}

// The 54 bytes of Fixed2Data.
void addSecondBlock(std::vector<Field>& fields) {
    fields.insert(fields.end(), {
                                    second(307, 0, 1143, Guid, "guid"),
                                    second(308, 16, 1145, Double, "place in the sheet"),
                                    second(309, 24, 1151, Guid, "guid of the parent"),
                                    second(310, 40, 1150, Number32, "second block, value at 40"), // meaning unknown
                                    second(311, 44, 1173, Number16, "second block, value at 44"), // meaning unknown
                                    second(312, 46, 1250, Number32, "second block, value at 46"), // meaning unknown
                                    second(313, 50, 1255, Date, "second block, date at 50"),
                                });
}

// Baselines 1 to 10 with ten map rows and eleven ids each; baseline 5's ids are followed by a gap.
void addBaselines(std::vector<Field>& fields) {
    for (int n = 1; n <= 10; ++n) {
        const int id = n <= 5 ? 482 + 11 * (n - 1) : 544 + 11 * (n - 6);
        addBaseline(fields, n, 315 + 10 * (n - 1), id,
                    {{0, 0, Date, "start"},
                     {1, 1, Date, "finish"},
                     {2, 2, Scaled, "cost"},
                     {3, 3, Scaled, "work"},
                     {4, 5, Number32, "duration"},
                     {5, 6, Number16, "duration units"}});
    }
}

FieldTable makeTaskFields() {
    FieldTable table{.number = 1,
                     .family = 0x0B400000,
                     .mapType = 0x00020014,
                     .oldMapType = 0x03000014,
                     .firstRows = 307,
                     .rows = 929,
                     .firstSize = 264,
                     .secondSize = 54,
                     .firstMetaSize = 47,
                     .secondMetaSize = 86,
                     .fields = {first(0, 0, 86, Number32, "unique id"), first(1, 4, 23, Number32, "id")}};
    addFlags(table.fields);
    addFirstBlock(table.fields);
    addTextsAndNotes(table.fields);
    addSecondBlock(table.fields);
    addBaselines(table.fields);
    table.fields.push_back(variable(927, 1252, Block, "sheet counters")); // meaning unknown, only in the project's row
    return table;
}

} // namespace

const FieldTable& taskFields() {
    static const FieldTable table = makeTaskFields();
    return table;
}

} // namespace brackwater::layout
