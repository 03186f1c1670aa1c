#include "FieldMap.h"

namespace brackwater::layout {

namespace {

constexpr std::uint16_t kNotFixed = 0xFFFF;
constexpr std::uint32_t kNoField = 0xFFFF; ///< low half of a field id, used by no field

// Form of a field, the second word of a row.
constexpr std::uint32_t kFixedForm = 0x0A, kFlagForm = 0x12, kVariableForm = 0x04, kSizedVariableForm = 0x06;
// Traits of a field: meaning unknown, the most common value of each form in real files.
constexpr std::uint32_t kFixedTraits = 0x28, kFlagTraits = 0x28, kVariableTraits = 0xCA, kSizedVariableTraits = 0xA8;
// Size of a text in Var2Data, always this in real files.
constexpr std::uint16_t kTextSize = 0x0200;
constexpr std::uint16_t kVar2DataMark = 0x0200;

struct Form {
    std::uint32_t mask = 0;
    std::uint16_t offset = kNotFixed;
    std::uint16_t variableNumber = 0;
    std::uint32_t form = 0;
    std::uint32_t fieldId = 0;
    std::uint32_t traits = 0;
    std::uint16_t category = 0;
    std::uint16_t size = 0;
    std::uint32_t flagNumber = 0;
};

void append(ByteBuilder& map, const Form& row) {
    map.u32(row.mask);           //  0
    map.u16(row.offset);         //  4
    map.u16(row.variableNumber); //  6 sequence number of the Var2Data fields, marked in the upper byte
    map.u32(row.form);           //  8
    map.u32(row.fieldId);        // 12
    map.u32(row.traits);         // 16
    map.u16(row.category);       // 20
    map.u16(row.size);           // 22
    map.u32(row.flagNumber);     // 24
}

void describeFixed(Form& row, const Field& field) {
    row.offset = field.position;
    row.form = kFixedForm;
    row.traits = kFixedTraits;
    row.size = sizeOf(field.kind);
}

void describeFlag(Form& row, const Field& field) {
    row.mask = 1U << field.position;
    row.form = kFlagForm;
    row.traits = kFlagTraits;
    row.size = 2;
    row.flagNumber = field.position;
}

void describeVariable(Form& row, const Field& field, unsigned runningNumber) {
    const bool sized = field.kind != FieldKind::Text && field.kind != FieldKind::Block;
    row.variableNumber = static_cast<std::uint16_t>(kVar2DataMark | (runningNumber & 0xFF));
    row.form = sized ? kSizedVariableForm : kVariableForm;
    row.traits = sized ? kSizedVariableTraits : kVariableTraits;
    if (sized)
        row.size = sizeOf(field.kind);
    else
        row.size = field.kind == FieldKind::Text ? kTextSize : std::uint16_t{0};
}

Bytes encode(const FieldTable& table, std::uint16_t rowCount) {
    ByteBuilder map;
    auto field = table.fields.begin();
    unsigned variables = 0;
    for (std::uint16_t rowNumber = 0; rowNumber < rowCount; ++rowNumber) {
        Form row{.fieldId = table.family | kNoField};
        if (field != table.fields.end() && field->row == rowNumber) {
            row.fieldId = table.family | field->id;
            row.category = static_cast<std::uint16_t>(field->kind);
            if (field->place == FieldPlace::Var2Data)
                describeVariable(row, *field, ++variables);
            else if (field->place == FieldPlace::MetaRecord)
                describeFlag(row, *field);
            else
                describeFixed(row, *field);
            ++field;
        }
        append(map, row);
    }
    return map.take();
}

} // namespace

Bytes fieldMap(const FieldTable& table) { return encode(table, table.rows); }

Bytes oldFieldMap(const FieldTable& table) { return encode(table, table.firstRows); }

} // namespace brackwater::layout
