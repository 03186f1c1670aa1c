#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

namespace brackwater::layout {

/// What a field holds. The values are the categories that a field map names them by: they are on the disk.
enum class FieldKind : std::uint16_t {
    Number16 = 0x02,
    Number32 = 0x03, ///< ids and durations
    Double = 0x05,
    Text = 0x08, ///< in Var2Data
    Date = 0x13,
    Block = 0x1D, ///< a block of a field's own form: notes, timephased work, custom values
    Guid = 0x48,
    Flag = 0x64,   ///< one bit of the meta record
    Scaled = 0x65, ///< double: work or money
    Units = 0x66,  ///< double: hundredths of a unit
};

/// Where a field stands.
enum class FieldPlace { FirstBlock, SecondBlock, Var2Data, MetaRecord };

/// One field of a row.
struct Field {
    std::uint16_t row; ///< its row in the field map, which is also its bit in the meta record
    std::uint16_t id;  ///< low half of the field id; the type of its element in Var2Data
    std::string name;
    FieldPlace place;
    FieldKind kind;
    std::uint16_t position; ///< offset in the block; in a meta record the number of the flag in its group
};

/// A fixed field of FixedData, of Fixed2Data, an element of Var2Data, a flag of a meta record.
[[nodiscard]] Field first(std::uint16_t row, std::uint16_t offset, std::uint16_t id, FieldKind kind, std::string name);
[[nodiscard]] Field second(std::uint16_t row, std::uint16_t offset, std::uint16_t id, FieldKind kind, std::string name);
[[nodiscard]] Field variable(int row, int id, FieldKind kind, std::string name);
[[nodiscard]] Field flag(std::uint16_t row, std::uint16_t number, std::uint16_t id, std::string name);

/// Adds the 30 text fields. The first ten have ids of their own; the others' ids and all map rows rise by one.
void addTexts(std::vector<Field>& fields, int row, const std::array<int, 10>& ids, int laterRow, int laterId);
/// An element of a baseline, counted from the baseline's first map row and first id.
struct BaselineElement {
    int row, id;
    FieldKind kind;
    const char* what;
};
/// Adds the elements of the n-th baseline.
void addBaseline(std::vector<Field>& fields, int n, int row, int id, std::initializer_list<BaselineElement> elements);

/// The layout of one kind of row: every field that is written, and the sizes of its rows and records.
struct FieldTable {
    std::uint16_t number;     ///< number of the kind in the project's properties
    std::uint32_t family;     ///< upper half of its field ids, in place
    std::uint32_t mapType;    ///< property type that holds the whole map
    std::uint32_t oldMapType; ///< property type that holds the rows of the first block
    std::uint16_t firstRows;  ///< map rows that belong to the first block: fields of earlier versions of the format
    std::uint16_t rows;       ///< map rows in all
    std::uint16_t firstSize, secondSize;         ///< bytes of a row in FixedData and Fixed2Data
    std::uint16_t firstMetaSize, secondMetaSize; ///< bytes of a record in FixedMeta and Fixed2Meta
    std::vector<Field> fields;                   ///< in the order of their map rows
};

[[nodiscard]] const FieldTable& taskFields();
[[nodiscard]] const FieldTable& resourceFields();
[[nodiscard]] const FieldTable& assignmentFields();
[[nodiscard]] const FieldTable& calendarFields();
[[nodiscard]] const FieldTable& linkFields();
[[nodiscard]] const FieldTable& outlineCodeFields();

/// Throws std::logic_error when a table contradicts itself: rows out of order or twice, fields that overlap or stand
/// outside their row, a flag outside its record.
void verify(const FieldTable& table);
/// Bytes of a fixed field.
[[nodiscard]] std::uint16_t sizeOf(FieldKind kind);

} // namespace brackwater::layout
