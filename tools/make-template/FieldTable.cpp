#include "FieldTable.h"

#include <fmt/format.h>

#include <map>
#include <stdexcept>

namespace brackwater::layout {

Field first(std::uint16_t row, std::uint16_t offset, std::uint16_t id, FieldKind kind, std::string name) {
    return {row, id, std::move(name), FieldPlace::FirstBlock, kind, offset};
}

Field second(std::uint16_t row, std::uint16_t offset, std::uint16_t id, FieldKind kind, std::string name) {
    return {row, id, std::move(name), FieldPlace::SecondBlock, kind, offset};
}

Field variable(int row, int id, FieldKind kind, std::string name) {
    return {static_cast<std::uint16_t>(row),
            static_cast<std::uint16_t>(id),
            std::move(name),
            FieldPlace::Var2Data,
            kind,
            0};
}

Field flag(std::uint16_t row, std::uint16_t number, std::uint16_t id, std::string name) {
    return {row, id, std::move(name), FieldPlace::MetaRecord, FieldKind::Flag, number};
}

void addTexts(std::vector<Field>& fields, int row, const std::array<int, 10>& ids, int laterRow, int laterId) {
    int n = 0;
    for (const int id : ids)
        fields.push_back(variable(row++, id, FieldKind::Text, fmt::format("text {}", ++n)));
    while (n < 30)
        fields.push_back(variable(laterRow++, laterId++, FieldKind::Text, fmt::format("text {}", ++n)));
}

void addBaseline(std::vector<Field>& fields, int n, int row, int id, std::initializer_list<BaselineElement> elements) {
    for (const BaselineElement& element : elements)
        fields.push_back(
            variable(row + element.row, id + element.id, element.kind, fmt::format("baseline {} {}", n, element.what)));
}

std::uint16_t sizeOf(FieldKind kind) {
    switch (kind) {
    case FieldKind::Number16:
        return 2;
    case FieldKind::Number32:
    case FieldKind::Date:
    case FieldKind::Block:
        return 4;
    case FieldKind::Double:
    case FieldKind::Scaled:
    case FieldKind::Units:
        return 8;
    case FieldKind::Guid:
        return 16;
    case FieldKind::Text:
    case FieldKind::Flag:
        break;
    }
    throw std::logic_error("this kind of field has no fixed size");
}

namespace {

// Fixed fields of one block must not overlap and must have rising map rows: only a falling offset marks the start of
// the second block in a map.
class BlockCheck {
public:
    explicit BlockCheck(std::uint16_t rowSize) : _rowSize(rowSize) {}

    void place(const Field& field) {
        if (field.position < _end)
            throw std::logic_error(fmt::format("field {} stands on the one before", field.name));
        _end = field.position + sizeOf(field.kind);
        if (_end > _rowSize)
            throw std::logic_error(fmt::format("field {} stands outside its row", field.name));
    }

private:
    int _end = 0;
    int _rowSize;
};

} // namespace

void verify(const FieldTable& table) {
    BlockCheck firstBlock(table.firstSize), secondBlock(table.secondSize);
    std::map<std::uint16_t, std::string> names;
    int lastRow = -1;
    for (const Field& field : table.fields) {
        if (field.row <= lastRow || field.row >= table.rows)
            throw std::logic_error(fmt::format("field {} has a map row out of order", field.name));
        lastRow = field.row;
        if (!names.emplace(field.id, field.name).second)
            throw std::logic_error(fmt::format("field {} stands twice", field.name));
        if (field.place == FieldPlace::FirstBlock)
            firstBlock.place(field);
        else if (field.place == FieldPlace::SecondBlock)
            secondBlock.place(field);
        const int bit = field.row < table.firstRows ? field.row : field.row - table.firstRows;
        const int recordSize = field.row < table.firstRows ? table.firstMetaSize : table.secondMetaSize;
        if (8 * 8 + bit >= recordSize * 8)
            throw std::logic_error(fmt::format("field {} has no bit in its meta record", field.name));
    }
}

} // namespace brackwater::layout
