#include "StandardProps.h"

#include "TemplateValues.h"

#include <array>

namespace brackwater::layout {

namespace {

template <typename Number>
struct Setting {
    std::uint32_t type;
    Number value;
};

// Default start and end of a working day, in tenths of a minute: 8:00 and 17:00.
constexpr std::uint16_t kDayStart = 4800, kDayEnd = 10200;

// Most meanings are unknown.
constexpr std::array<Setting<std::uint16_t>, 66> kShortSettings{
    {{0x0240000F, 3}, {0x02400013, 0}, {0x02400017, 0},         {0x02400018, 0},       {0x02400019, 1},
     {0x0240001A, 1}, {0x0240001B, 1}, {0x0240001C, kDayStart}, {0x02400021, kDayEnd}, {0x02400024, 0},
     {0x02400026, 0}, {0x02400027, 0}, {0x02400028, 0},         {0x0240002A, 0xFFFF},  {0x0240002B, 1},
     {0x0240002C, 1}, {0x0240002F, 2}, {0x02400030, 2},         {0x02400031, 0},       {0x02400032, 1},
     {0x02400033, 1}, {0x02400034, 1}, {0x02400035, 2},         {0x02400036, 1},       {0x02400037, 1},
     {0x02400038, 1}, {0x02400039, 0}, {0x0240003B, 0},         {0x0240003C, 1},       {0x0240003D, 1},
     {0x02400041, 0}, {0x02400042, 0}, {0x02400043, 0},         {0x02400044, 0},       {0x02400046, 1},
     {0x02400047, 3}, {0x0240004B, 0}, {0x0240004D, 3},         {0x0240004F, 0},       {0x02400050, 1},
     {0x0240005D, 0}, {0x02401389, 1}, {0x0240138A, 1},         {0x0240138D, 1},       {0x0240138E, 1},
     {0x02401391, 0}, {0x02401392, 0}, {0x024013A0, 0},         {0x024013A1, 0},       {0x024013A2, 0},
     {0x024013A3, 0}, {0x024013A4, 4}, {0x024013A9, 0},         {0x024013AB, 0},       {0x024013AC, 0},
     {0x024013AE, 1}, {0x024013AF, 0}, {0x024013B2, 0},         {0x024013B5, 0},       {0x024013B6, 0},
     {0x024013B7, 0}, {0x024013B8, 0}, {0x024013B9, 0},         {0x024013BA, 0},       {0x024013C0, 0},
     {0x024013C1, 1}}};

// Language, country and code pages of the author's system: US English.
constexpr std::uint32_t kLanguage = 0x0409, kCountry = 1, kConsoleCodePage = 437, kCodePage = 1252;

constexpr std::array<Setting<std::uint32_t>, 28> kLongSettings{{
    {0x02400006, kProjectStart}, // created
    {0x02400007, kProjectStart}, // last saved
    {0x02400014, 0},
    {0x0240002D, kNoDate},
    {0x0240002E, kNoDate},
    {0x0240003E, kNoDate},
    {0x0240003F, kNoDate},
    {0x02400045, kNoDate},
    {0x0240004E, kNoDate},
    {0x02400051, kLanguage},
    {0x02400052, kCountry},
    {0x02400053, kLanguage},
    {0x02400054, kCountry},
    {0x02400055, kConsoleCodePage},
    {0x02400056, kCodePage},
    {0x02400057, kLanguage},
    {0x02400058, kCountry},
    {0x02400059, kLanguage},
    {0x0240005A, kCountry},
    {0x0240005B, kConsoleCodePage},
    {0x0240005C, kCodePage},
    {0x0240005E, kLanguage},
    {0x02400084, 0},
    {0x024000A4, 0},
    {0x024000A5, 0},
    {0x024000AF, 0},
    {0x024013B1, kProjectStart}, // last saved
    {0x024013BF, kNoDate},
}};

/// A value of zero bytes.
struct Blank {
    std::uint32_t type;
    std::size_t size;
};
constexpr std::array<Blank, 10> kBlanks{{{0x0240138B, 4},
                                         {0x02401393, 4},
                                         {0x024013A5, 4},
                                         {0x024013AD, 4},
                                         {0x024013B0, 4},
                                         {0x024013B3, 4},
                                         {0x024013BD, 16},
                                         {0x024013BE, 2},
                                         {0x024013C3, 16},
                                         {0x024013C5, 8}}};

// An hourly rate; the third word of its head is always this.
Bytes noRate() { return ByteBuilder().zeroes(sizeof(double)).take(); }
constexpr std::uint32_t kRateMark = 9;

Bytes bytesOf(const GuidBytes& guid) { return {guid.begin(), guid.end()}; }

// One property of four bytes; meaning unknown.
Bytes propertyList() {
    constexpr std::uint32_t size = 28, count = 1, valueSize = 4, type = 1;
    return ByteBuilder()
        .u32(size)
        .u32(kStoragePropsMagic)
        .u32(count)
        .u32(valueSize)
        .u32(type)
        .u32(valueSize)
        .u32(0)
        .take();
}

// When the project was created, as a system time: year, month, weekday, day, hour and so on.
Bytes creationTime() { return ByteBuilder().u16(2007).u16(1).u16(1).u16(1).u16(8).zeroes(std::size_t{3} * 2).take(); }

} // namespace

void addStandardProps(PropsFrame& props) {
    for (const auto& [type, value] : kShortSettings)
        props.number16(type, value);
    for (const auto& [type, value] : kLongSettings)
        props.number32(type, value);
    for (const auto& [type, size] : kBlanks)
        props.open(type, ByteBuilder().zeroes(size).take());
    for (const std::uint32_t type : {0x02401390U, 0x024013A8U})
        props.open(type, ByteBuilder().u32(8).u32(0).take()); // meaning unknown
    props.open(0x0240001F, noRate(), kRateMark);              // default standard rate
    props.open(0x02400020, noRate(), kRateMark);              // default overtime rate
    props.open(0x02400029, bytesOf(kFileGuid));
    props.open(0x024000A2, ByteBuilder().u32(16).u32(1).u32(12).u32(0).take()); // meaning unknown
    props.open(0x024000AE, propertyList());
    props.open(0x0240138C, ByteBuilder().u32(1).bytes(kNobodyGuid).u32(0).take()); // meaning unknown
    props.open(0x02401394, creationTime());
}

} // namespace brackwater::layout
