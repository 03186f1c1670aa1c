#include "FieldTable.h"

namespace brackwater::layout {

namespace {

using enum FieldKind;

// The rest of the 188 bytes of FixedData.
void addFirstBlock(std::vector<Field>& fields) {
    fields.insert(fields.end(), {
                                    flag(9, 15, 298, "of type work"),
                                    flag(10, 16, 84, "has notes"),
                                    flag(12, 19, 163, "flag 19"), // meanings unknown
                                    flag(13, 20, 316, "flag 20"),
                                    flag(15, 22, 339, "flag 22"),
                                    first(16, 8, 70, Number16, "standard rate units"),
                                    first(17, 10, 71, Number16, "overtime rate units"),
                                    first(18, 12, 19, Number16, "accrual"),
                                    first(19, 14, 272, Number16, "type"),
                                    first(20, 16, 56, Number32, "calendar id"),
                                    first(21, 20, 57, Date, "available from"),
                                    first(22, 24, 58, Date, "available to"),
                                    first(23, 28, 6, Double, "standard rate"),
                                    first(24, 36, 7, Double, "overtime rate"),
                                    first(25, 44, 4, Units, "maximum units"),
                                    first(26, 52, 13, Scaled, "work"),
                                    first(27, 60, 14, Scaled, "actual work"),
                                    first(28, 68, 15, Scaled, "baseline work"),
                                    first(29, 76, 16, Scaled, "overtime work"),
                                    first(30, 84, 18, Scaled, "cost per use"),
                                    first(31, 92, 22, Scaled, "remaining work"),
                                    first(32, 100, 38, Scaled, "regular work"),
                                    first(33, 108, 39, Scaled, "actual overtime work"),
                                    first(34, 116, 40, Scaled, "remaining overtime work"),
                                    first(35, 124, 26, Units, "peak units"),
                                    first(36, 132, 11, Scaled, "actual cost"),
                                    first(37, 140, 12, Scaled, "cost"),
                                    first(38, 148, 17, Scaled, "baseline cost"),
                                    first(39, 156, 21, Scaled, "remaining cost"),
                                    first(40, 164, 47, Scaled, "overtime cost"),
                                    first(41, 172, 48, Scaled, "actual overtime cost"),
                                    first(42, 180, 49, Scaled, "remaining overtime cost"),
                                });
}

void addTextsAndNotes(std::vector<Field>& fields) {
    fields.insert(fields.end(), {
                                    variable(43, 1, Text, "name"),
                                    variable(44, 85, Block, "element of type 85"), // meaning unknown, always 2
                                    variable(45, 2, Text, "initials"),
                                    variable(46, 3, Text, "group"),
                                    variable(47, 10, Text, "code"),
                                    variable(48, 35, Text, "e-mail address"),
                                });
    addTexts(fields, 52, {8, 9, 30, 31, 32, 97, 98, 99, 100, 101}, 62, 225);
    fields.push_back(variable(206, 20, Block, "notes"));
}

// The 40 bytes of Fixed2Data, with the flags between them.
void addSecondBlock(std::vector<Field>& fields) {
    fields.insert(fields.end(),
                  {
                      second(225, 0, 728, Guid, "guid"), second(226, 16, 730, Double, "place in the sheet"),
                      flag(227, 1, 736, "second block, flag 1"), // meaning unknown, set for work resources
                      flag(229, 23, 735, "of type cost"), flag(230, 24, 752, "budget"),
                      second(231, 24, 729, Guid, "second guid"),
                      variable(458, 739, Guid, "element of type 739"), // meaning unknown, always zero
                  });
}

void addBaselines(std::vector<Field>& fields) {
    for (int n = 1; n <= 10; ++n)
        addBaseline(fields, n, 507 + 4 * (n - 1), 342 + 10 * (n - 1), {{0, 0, Scaled, "work"}, {1, 1, Scaled, "cost"}});
}

FieldTable makeResourceFields() {
    FieldTable table{.number = 2,
                     .family = 0x0C400000,
                     .mapType = 0x00020015,
                     .oldMapType = 0x03000015,
                     .firstRows = 225,
                     .rows = 551,
                     .firstSize = 188,
                     .secondSize = 40,
                     .firstMetaSize = 37,
                     .secondMetaSize = 49,
                     .fields = {first(0, 0, 27, Number32, "unique id"), first(1, 4, 0, Number32, "id")}};
    addFirstBlock(table.fields);
    addTextsAndNotes(table.fields);
    addSecondBlock(table.fields);
    addBaselines(table.fields);
    return table;
}

} // namespace

const FieldTable& resourceFields() {
    static const FieldTable table = makeResourceFields();
    return table;
}

} // namespace brackwater::layout
