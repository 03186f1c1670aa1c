#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace brackwater::layout {

/// The type of a field. The values are the categories in field maps: they are stored on disk.
enum class FieldKind : std::uint16_t {
    Number16 = 0x02,
    Number32 = 0x03, ///< ids and durations
    Double = 0x05,
    Text = 0x08, ///< in Var2Data
    Date = 0x13,
    Block = 0x1D, ///< a block with its own format: notes, timephased work, custom values
    Guid = 0x48,
    Flag = 0x64,   ///< one bit of the meta record
    Scaled = 0x65, ///< double: work or money
    Units = 0x66,  ///< double: hundredths of a unit
};

/// The location of a field.
enum class FieldPlace { FirstBlock, SecondBlock, Var2Data, MetaRecord };

/// One field of a row.
struct Field {
    std::uint16_t row; ///< its row in the field map, and also its bit in the meta record
    std::uint16_t id;  ///< low half of the field id; the type of its element in Var2Data
    std::string name;
    FieldPlace place;
    FieldKind kind;
    std::uint16_t position; ///< offset in the block; in a meta record, the number of the flag in its group
};

/// A fixed field of FixedData, of Fixed2Data, an element of Var2Data, a flag of a meta record.
[[nodiscard]] Field first(std::uint16_t row, std::uint16_t offset, std::uint16_t id, FieldKind kind, std::string name);
[[nodiscard]] Field second(std::uint16_t row, std::uint16_t offset, std::uint16_t id, FieldKind kind, std::string name);
[[nodiscard]] Field variable(int row, int id, FieldKind kind, std::string name);
[[nodiscard]] Field flag(std::uint16_t row, std::uint16_t number, std::uint16_t id, std::string name);

/// Adds the 30 text fields. The first ten have individual ids; the ids of the others, and all map rows, are
/// consecutive.
void addTexts(std::vector<Field>& fields, int row, const std::array<int, 10>& ids, int laterRow, int laterId);
/// An element of a baseline, relative to the baseline's first map row and first id.
struct BaselineElement {
    int row, id;
    FieldKind kind;
    const char* what;
};
/// Adds the elements of the n-th baseline.
void addBaseline(std::vector<Field>& fields, int n, int row, int id, std::initializer_list<BaselineElement> elements);

/// The layout of one kind of row: every written field, and the sizes of its rows and records.
struct FieldTable {
    std::uint16_t number;                ///< number of the kind in the project's properties
    std::uint32_t family;                ///< upper half of its field ids, already shifted
    std::uint32_t mapType;               ///< property type that holds the whole map
    std::uint32_t oldMapType;            ///< property type that holds the rows of the first block
    std::uint16_t firstRows;             ///< map rows of the first block: fields of earlier versions of the format
    std::uint16_t rows;                  ///< total map rows
    std::uint16_t firstSize, secondSize; ///< bytes of a row in FixedData and Fixed2Data
    std::uint16_t firstMetaSize, secondMetaSize; ///< bytes of a record in FixedMeta and Fixed2Meta
    std::vector<Field> fields;                   ///< in the order of their map rows
};

[[nodiscard]] const FieldTable& taskFields();
[[nodiscard]] const FieldTable& resourceFields();
[[nodiscard]] const FieldTable& assignmentFields();
[[nodiscard]] const FieldTable& calendarFields();
[[nodiscard]] const FieldTable& linkFields();
[[nodiscard]] const FieldTable& outlineCodeFields();

/// Throws std::logic_error if a table is inconsistent: rows out of order or duplicated, fields that overlap or exceed
/// their row, a flag outside its record.
void verify(const FieldTable& table);
/// Bytes of a fixed field.
[[nodiscard]] std::uint16_t sizeOf(FieldKind kind);

} // namespace brackwater::layout
