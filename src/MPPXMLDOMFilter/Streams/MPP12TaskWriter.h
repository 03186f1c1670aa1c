#pragma once

#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPVar2Data.h"
#include "MPPXMLDOMFilter/Streams/DateEncoder.h"
#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace brackwater {

/// Writes the storage "TBkndTask": a row for the project and one for every task, in seven streams.
class MPP12TaskWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

    /// Runs once, first of its kind, before any stream is written: lets the project stand in for a single top task,
    /// numbers the tasks from 1, gives each a parent, adds the fixed cost to the cost and moves first baselines out.
    static void preprocessProject(MPPProject& project);
    /// Var2Data type of the text field at a position counted from 1; raises UnknownTextFieldException past 30.
    [[nodiscard]] static std::uint16_t getTextFieldTypeForIndex(std::size_t index);

protected:
    void writeSteps() override;

private:
    void writeVar2Data();
    void writeVarMeta();
    void writeFixedData();
    void writeFixedMeta();
    void writeFixed2Data();
    void writeFixed2Meta();
    void writeProps();

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

    std::shared_ptr<MPPVar2Data> _var2Data = std::make_shared<MPPVar2Data>();
    std::shared_ptr<MPPFixedData> _fixedData = std::make_shared<MPPFixedData>();
    std::shared_ptr<MPPFixedData> _fixed2Data = std::make_shared<MPPFixedData>();
    DateEncoder _dates;
};

} // namespace brackwater
