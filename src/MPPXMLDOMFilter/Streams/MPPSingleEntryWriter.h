#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPFixedData.h"
#include "MPPXMLDOMFilter/Buffers/MPPFixedMeta.h"
#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"

#include <cstdint>

namespace brackwater {

/// What the storages of views, tables and entry lists share: they are the template's where the project keeps its views,
/// else a fixed minimum of four streams that holds one entry and nothing of the project or the template.
class MPPSingleEntryWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

protected:
    void writeSteps() override;

    [[nodiscard]] virtual std::uint16_t descriptionEnding() const = 0;
    virtual void writeFixedElement(MPPFixedData& fixedData) const = 0;
    virtual void writeFixedMetaRecord(MPPFixedMeta& fixedMeta) const = 0;

private:
    void writeMinimum();
};

} // namespace brackwater
