#include "FieldTable.h"

namespace brackwater::layout {

using enum FieldKind;

const FieldTable& calendarFields() {
    static const FieldTable table{.number = 3,
                                  .family = 0x0D400000,
                                  .mapType = 0x00020016,
                                  .oldMapType = 0x03000016,
                                  .firstRows = 9,
                                  .rows = 16,
                                  .firstSize = 12,
                                  .secondSize = 48,
                                  .firstMetaSize = 10,
                                  .secondMetaSize = 9,
                                  .fields = {
                                      first(0, 0, 9, Number32, "unique id"),
                                      first(1, 4, 6, Number32, "id of the base calendar"),
                                      first(2, 8, 7, Number32, "resource id"),
                                      flag(3, 0, 0, "base calendar"),
                                      variable(6, 1, Text, "name"),
                                      variable(8, 8, Block, "working times"),
                                      second(9, 0, 27, Guid, "guid"),
                                      second(10, 16, 28, Guid, "guid of the resource"),
                                      second(11, 32, 29, Guid, "guid of the base calendar"),
                                  }};
    return table;
}

const FieldTable& linkFields() {
    static const FieldTable table{.number = 5,
                                  .family = 0x0E400000,
                                  .mapType = 0x00020018,
                                  .oldMapType = 0x03000018,
                                  .firstRows = 8,
                                  .rows = 11,
                                  .firstSize = 20,
                                  .secondSize = 48,
                                  .firstMetaSize = 10,
                                  .secondMetaSize = 9,
                                  .fields = {
                                      first(0, 0, 0, Number32, "unique id"),
                                      first(3, 4, 2, Number32, "predecessor id"),
                                      first(4, 8, 5, Number32, "successor id"),
                                      first(5, 12, 7, Number16, "type"),
                                      first(6, 14, 10, Number16, "lag units"),
                                      first(7, 16, 9, Number32, "lag"),
                                      second(8, 0, 21, Guid, "guid"),
                                      second(9, 16, 22, Guid, "guid of the predecessor"),
                                      second(10, 32, 23, Guid, "guid of the successor"),
                                  }};
    return table;
}

const FieldTable& outlineCodeFields() {
    static const FieldTable table{.number = 8,
                                  .family = 0x16400000,
                                  .mapType = 0x00020019,
                                  .oldMapType = 0x03000019,
                                  .firstRows = 10,
                                  .rows = 19,
                                  .firstSize = 14,
                                  .secondSize = 50,
                                  .firstMetaSize = 10,
                                  .secondMetaSize = 10,
                                  .fields = {
                                      first(0, 0, 0, Number32, "unique id"),
                                      first(1, 4, 1, Number32, "id of the parent"),
                                      flag(2, 0, 2, "flag 0"),
                                      flag(3, 2, 3, "flag 2"),
                                      flag(4, 0, 4, "second flag 0"),
                                      flag(5, 1, 5, "flag 1"),
                                      flag(6, 3, 6, "flag 3"),
                                      first(7, 8, 13, Number32, "place"),
                                      first(8, 12, 11, Number16, "level"),
                                      variable(9, 8, Text, "name"),
                                      second(10, 0, 19, Guid, "guid"),
                                      second(11, 16, 20, Guid, "guid of the parent"),
                                      second(12, 32, 25, Guid, "guid of the field"),
                                      second(13, 48, 21, Number16, "kind"),
                                      variable(14, 23, Double, "number"),
                                      variable(15, 22, Block, "value"),
                                      variable(16, 27, Text, "description"),
                                      variable(17, 28, Text, "long name"),
                                      variable(18, 30, Text, "code"),
                                  }};
    return table;
}

} // namespace brackwater::layout
