#pragma once

#include "MPPXMLDOMFilter/Streams/DateEncoder.h"
#include "MPPXMLDOMFilter/Streams/MPPRowStorageWriter.h"

#include <cstddef>
#include <cstdint>

namespace brackwater {

/// Writes the storage "TBkndTask": a row for the project and one for every task, in seven streams.
class MPP12TaskWriter : public MPPRowStorageWriter {
public:
    using MPPRowStorageWriter::MPPRowStorageWriter;

    /// Runs once, first of its kind, before any stream is written: lets the project stand in for a single top task,
    /// numbers the tasks from 1, gives each a parent, adds the fixed cost to the cost and moves first baselines out.
    static void preprocessProject(MPPProject& project);
    /// Var2Data type of the text field at a position counted from 1; raises UnknownTextFieldException past 30.
    [[nodiscard]] static std::uint16_t getTextFieldTypeForIndex(std::size_t index);

protected:
    [[nodiscard]] RowStorageLayout layout() const override;
    void writeVar2Data(StreamOutput& stream) override;
    void writeVarMeta(MPP12VarMeta& varMeta, StreamOutput& stream) override;
    void writeFixedData(StreamOutput& stream) override;
    void writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) override;
    void writeFixed2Data(StreamOutput& stream) override;
    void writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) override;
    void writeProps() override;

private:
    /// The elements of a row, type beside payload. The project's own has its title alone unless it is as a task's.
    template <typename Visitor>
    void visitElements(const MPPTask& task, Visitor& element);
    template <typename Visitor>
    void visitElementsBehindTitle(const MPPTask& task, Visitor& element);
    [[nodiscard]] std::uint32_t elementsOf(const MPPTask& task);
    void writeTaskFixedData(const MPPTask& task);
    void writeTaskFixedMeta(const MPPTask& task, MPPFixedMeta& fixedMeta);
    /// Whether the template's rows are those of older files.
    [[nodiscard]] bool hasLongFixed2Rows() const;
    void writeTaskFixed2Data(const MPPTask& task);
    template <std::size_t Size>
    void writeFixed2Row(const MPPTask& task);
    void writeTaskFixed2Meta(const MPPTask& task, MPPFixedMeta& fixed2Meta) const;
    [[nodiscard]] bool isProject(const MPPTask& task) const noexcept { return &task == &project(); }

    DateEncoder _dates;
};

} // namespace brackwater
