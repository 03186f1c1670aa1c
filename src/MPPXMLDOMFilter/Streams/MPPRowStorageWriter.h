#pragma once

#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPVar2Data.h"
#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"
#include "MPPXMLDOMFilter/Streams/StreamOutput.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace brackwater {

/// Rows in front of a storage's own that hold none of the project's records, and the sizes that they take.
struct HeaderRows {
    std::size_t count = 0;
    std::size_t bit = 0; ///< of their records in "FixedMeta"
    std::size_t fixedMetaSize = 0;
    std::size_t fixed2RowSize = 0;
    std::size_t fixed2MetaSize = 0;
};

/// What makes a storage of rows differ from another.
struct RowStorageLayout {
    MPPRowKind kind;
    /// Of the records of "VarMeta". A storage without one has no "Var2Data" either, and the template's "VarMeta".
    std::optional<std::uint16_t> descriptionEnding = std::nullopt;
    HeaderRows headerRows = {};
};

/// What the storages of rows share: six streams in a fixed order, since an index needs its data finished, and "Props".
/// A writer fills each stream behind the header and the header rows.
class MPPRowStorageWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

protected:
    void writeSteps() final;

    [[nodiscard]] virtual RowStorageLayout layout() const = 0;
    /// The elements, and their records in the order of the index; not called for a storage without elements.
    virtual void writeVar2Data(StreamOutput& /*stream*/) {}
    virtual void writeVarMeta(MPP12VarMeta& /*varMeta*/, StreamOutput& /*stream*/) {}
    /// The two parts of the rows, each followed by its records, in the same order.
    virtual void writeFixedData(StreamOutput& stream) = 0;
    virtual void writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) = 0;
    virtual void writeFixed2Data(StreamOutput& stream) = 0;
    virtual void writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) = 0;
    /// Copies the template's unless a writer has more to say.
    virtual void writeProps() { copyChildFromTemplate("Props"); }

    /// Whether the index records mark just the elements that exist, as files saved by Microsoft Project 2007 do. An
    /// exact export marks others too.
    [[nodiscard]] bool marksElementsOnly() const noexcept { return project().bookkeeping != nullptr; }

    [[nodiscard]] MPPVar2Data& var2Data() const noexcept { return *_var2Data; }
    [[nodiscard]] MPPFixedData& fixedData() const noexcept { return *_fixedData; }
    [[nodiscard]] MPPFixedData& fixed2Data() const noexcept { return *_fixed2Data; }

private:
    template <typename Fill>
    void writeStream(const char* name, MPPData& data, const Fill& fill);
    void writeElements(std::uint16_t descriptionEnding);
    void writeRows(const HeaderRows& headers);
    void writeSecondRows(const HeaderRows& headers);
    /// Notes the storage's numbers where the file keeps them.
    void noteRows(MPPRowKind kind) const;

    std::shared_ptr<MPPVar2Data> _var2Data = std::make_shared<MPPVar2Data>();
    std::shared_ptr<MPPFixedData> _fixedData = std::make_shared<MPPFixedData>();
    std::shared_ptr<MPPFixedData> _fixed2Data = std::make_shared<MPPFixedData>();
};

} // namespace brackwater
