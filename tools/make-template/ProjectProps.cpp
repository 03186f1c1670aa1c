#include "ProjectProps.h"

#include "FieldMap.h"
#include "PropsFrame.h"
#include "StandardProps.h"
#include "TemplateValues.h"

namespace brackwater::layout {

namespace {

constexpr std::uint16_t kYes = 1, kNo = 0;

// Ranges of a working day: count, total, starts, lengths and running totals, all in tenths of a minute.
void workingDay(ByteBuilder& hours) {
    constexpr std::uint16_t eight = 8 * 600, thirteen = 13 * 600, four = 4 * 600;
    hours.u16(kNo); // not inherited
    hours.u16(2).u32(2 * four);
    hours.u16(eight).u16(thirteen).zeroes(std::size_t{3} * 2);
    hours.u16(0);
    hours.u32(four).u32(four).zeroes(std::size_t{3} * 4);
    hours.u32(four).u32(2 * four).zeroes(std::size_t{3} * 4);
}

void addTexts(PropsFrame& props) {
    props.text(0x024003E8, "TBkndTask,TBkndRsc,TBkndCal,TBkndAssn,TBkndCons,TBkndOutlCode "); // storages of rows
    props.text(0x02400000, "");                                                               // company
    props.text(0x02400001, "");                                                               // manager
}

void addProjectValues(PropsFrame& props) {
    props.number32(0x02400002, kProjectStart);     // start
    props.number32(0x02400003, kProjectStart);     // finish
    props.number16(0x02400004, kYes);              // scheduled from the start
    props.text(0x02400005, "");                    // comments
    props.text(0x02400008, "");                    // title
    props.text(0x02400009, "");                    // subject
    props.text(0x0240000C, " ");                   // author
    props.text(0x0240000D, "");                    // keywords
    props.text(0x0240000E, kStandardCalendarName); // default calendar
    props.text(0x02400010, "$");                   // currency symbol
    props.number16(0x02400011, 0);                 // currency symbol position: before the number
    props.number16(0x02400012, 2);                 // currency digits
    props.number16(0x02400015, 7);                 // durations are shown in days
    props.number16(0x02400016, 5);                 // work is shown in hours
    props.number32(0x0240001D, 8 * 60);            // minutes per day
    props.number32(0x0240001E, 5 * 8 * 60);        // minutes per week
    props.number16(0x02400025, 1);                 // the week starts on Monday
    props.number16(0x0240003A, 0);                 // constraints are honoured
    props.text(0x02400049, "");                    // category
    props.text(0x0240004A, "");                    // hyperlink base
    props.open(0x02401388, defaultHours());
    props.number16(0x0240138F, 20); // days per month
    for (std::uint32_t baseline = 0; baseline <= 10; ++baseline)
        props.number32(0x02401395 + baseline, kNoDate); // when each baseline was saved
    props.text(0x024013BB, "USD");                      // currency code
    props.open(0x024013C2, Bytes(kStandardCalendarGuid.begin(), kStandardCalendarGuid.end()));
}

// Properties of one kind of row, on which readers and the writer of the rows must agree.
void addRowKind(PropsFrame& props, const RowStorage& storage) {
    const FieldTable& table = storage.table;
    const std::uint32_t n = table.number;
    props.number32(0x01000000 | n, storage.rowCount());
    props.number32(0x02000000 | n, 0); // meaning unknown
    props.number32(0x00800000 | n, 0); // meaning unknown
    props.number32(0x00010000 | n, storage.var2DataSize());
    props.number32(0x04000000 | n, table.firstRows);
    props.number32(0x00400000 | n, table.firstSize);
    props.open(table.oldMapType, oldFieldMap(table));
    props.open(table.mapType, fieldMap(table));
    props.number32(0x00030000 | n, table.rows);
    props.number32(0x00040000 | n, table.secondSize);
    props.number32(0x00050000 | n, 1); // meaning unknown
}

} // namespace

Bytes defaultHours() {
    ByteBuilder hours;
    hours.zeroes(60);
    for (int day = 0; day < 5; ++day)
        workingDay(hours);
    hours.zeroes(60);
    return hours.take();
}

Bytes projectProps(const std::vector<RowStorage>& storages) {
    PropsFrame props(kProjectPropsMagic);
    addTexts(props);
    addProjectValues(props);
    addStandardProps(props);
    for (const RowStorage& storage : storages)
        addRowKind(props, storage);
    return props.take();
}

Bytes rootProps() {
    PropsFrame props(kProjectPropsMagic);
    props.text(0x35400008, "");                           // title
    props.open(0x35400000, ByteBuilder().u8(kNo).take()); // no password
    return props.take();
}

} // namespace brackwater::layout
