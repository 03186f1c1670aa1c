#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPProps.h"
#include "MPPXMLDOMFilter/Streams/MPP12SequentialPropsReader.h"
#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"

#include <cstdint>
#include <memory>

namespace brackwater {

/// Writes the project's properties ("Props" of a version folder, "Props12", "Props14"): the template's list in the
/// template's order, with the values of known properties replaced.
class MPP12ProjectPropsWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

    /// The project's value for a property; null for a type that is not known.
    [[nodiscard]] static std::unique_ptr<MPPData> constructValueForPropertyType(std::uint32_t type,
                                                                                const MPPProject& project);

protected:
    void writeSteps() override;

private:
    void writeValueForCurrentlySelectedProperty(const MPP12SequentialPropsReader& reader, MPPProps& props) const;
};

} // namespace brackwater
