#include "FieldTable.h"

namespace brackwater::layout {

namespace {

using enum FieldKind;

void addFirstBlock(std::vector<Field>& fields) {
    fields.insert(fields.end(), {
                                    flag(4, 0, 40, "split"),
                                    flag(5, 1, 41, "has actual work"),
                                    flag(6, 2, 42, "is finished"),
                                    flag(12, 10, 83, "flag 10"), // meaning unknown, set in every record
                                    flag(13, 11, 84, "flag 11"), // meaning unknown, set in every record
                                    flag(15, 23, 70, "has notes"),
                                    flag(20, 10, 269, "flag 10 of the second group"), // meaning unknown, as 12 and 13
                                    first(22, 4, 1, Number32, "task id"),
                                    first(23, 8, 2, Number32, "resource id"),
                                    first(24, 12, 20, Date, "start"),
                                    first(25, 16, 21, Date, "finish"),
                                    first(26, 20, 24, Date, "resume"),
                                    first(27, 24, 25, Number32, "delay"),
                                    first(28, 28, 55, Number16, "delay units"),
                                    first(29, 30, 145, Number32, "leveling delay"),
                                    first(30, 34, 80, Number16, "cost rate table"),
                                    first(31, 36, 146, Date, "baseline start"),
                                    first(32, 40, 147, Date, "baseline finish"),
                                    first(33, 44, 264, Date, "stop"),
                                    first(34, 48, 81, Block, "state bits"),
                                    first(35, 52, 270, Number16, "variable rate units"),
                                    first(36, 54, 7, Units, "units"),
                                    first(37, 62, 8, Scaled, "work"),
                                    first(38, 70, 10, Scaled, "actual work"),
                                    first(39, 78, 11, Scaled, "regular work"),
                                    first(40, 86, 12, Scaled, "remaining work"),
                                    first(41, 94, 16, Scaled, "baseline work"),
                                    first(42, 102, 26, Scaled, "cost"),
                                    first(43, 110, 28, Scaled, "actual cost"),
                                    first(44, 118, 29, Scaled, "remaining cost"),
                                    first(45, 126, 32, Scaled, "baseline cost"),
                                    first(46, 134, 267, Scaled, "first block, double at 134"), // meaning unknown
                                    variable(52, 71, Block, "notes"),
                                    variable(53, 49, Block, "planned work"),
                                    variable(55, 50, Block, "complete work"),
                                });
}

void addSecondBlock(std::vector<Field>& fields) {
    fields.insert(fields.end(), {
                                    second(205, 0, 636, Guid, "guid"),
                                    second(210, 16, 637, Guid, "guid of the task"),
                                    second(211, 32, 638, Guid, "guid of the resource"),
                                    variable(420, 634, Date, "created"),
                                });
}

void addBaselines(std::vector<Field>& fields) {
    for (int n = 1; n <= 10; ++n)
        addBaseline(fields, n, 471 + 8 * (n - 1), 289 + 9 * (n - 1),
                    {{0, 6, Date, "start"}, {1, 7, Date, "finish"}, {2, 0, Scaled, "work"}});
}

FieldTable makeAssignmentFields() {
    FieldTable table{.number = 4,
                     .family = 0x0F400000,
                     .mapType = 0x00020017,
                     .oldMapType = 0x03000017,
                     .firstRows = 205,
                     .rows = 559,
                     .firstSize = 142,
                     .secondSize = 48,
                     .firstMetaSize = 34,
                     .secondMetaSize = 53,
                     .fields = {first(0, 0, 0, Number32, "unique id")}};
    addFirstBlock(table.fields);
    addSecondBlock(table.fields);
    addBaselines(table.fields);
    table.fields.push_back(variable(555, 665, Guid, "element of type 665")); // meaning unknown, always zero
    table.fields.push_back(variable(557, 667, Guid, "element of type 667")); // meaning unknown, always zero
    return table;
}

} // namespace

const FieldTable& assignmentFields() {
    static const FieldTable table = makeAssignmentFields();
    return table;
}

} // namespace brackwater::layout
