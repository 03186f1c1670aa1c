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

} // namespace brackwater::layout
