#pragma once

#include "MPPXMLDOMFilter/Buffers/MPPOffsetMarkedData.h"
#include "MPPXMLDOMFilter/Streams/MPPStreamWriter.h"
#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoData.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace brackwater {

/// The values of a property set's section, one element a property, and the ids that belong to them.
class SummaryProperties {
public:
    explicit SummaryProperties(MPPSummaryTexts texts) : _texts(texts) {}

    void addShort(std::uint32_t id, std::uint32_t value);
    /// The code page of the texts.
    void addCodePage(std::uint32_t id);
    void addInteger(std::uint32_t id, std::uint32_t value);
    /// Where only ASCII texts are held, another one becomes an empty one.
    void addText(std::uint32_t id, std::string_view text);
    /// Adds nothing when there is no text; an empty text is one.
    void addText(std::uint32_t id, const std::optional<std::string>& text);
    /// A text whose bytes stand as they are, without terminator.
    void addTextBytes(std::uint32_t id, std::span<const std::uint8_t> bytes);

    [[nodiscard]] const MPPOffsetMarkedData& values() const noexcept { return _values; }
    /// By element of `values`.
    [[nodiscard]] const std::vector<std::uint32_t>& ids() const noexcept { return _ids; }

private:
    void start(std::uint32_t id, std::uint32_t form);
    void addAsciiText(std::uint32_t id, std::string_view text);
    void addStandardText(std::uint32_t id, std::string_view text);

    MPPSummaryTexts _texts;
    MPPOffsetMarkedData _values;
    std::vector<std::uint32_t> _ids;
};

/// What the two summary streams share. The template's versions are not read.
class MPPSummaryInfoStreamWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

protected:
    void writeSteps() override;

    virtual void openData(MPPSummaryInfoData& data) const = 0;
    virtual void createFieldAliasesData(SummaryProperties& properties, const MPPSummaryInformation& info) const = 0;
};

/// Writes "\x05SummaryInformation".
class MPP12ProjectSInfoWriter : public MPPSummaryInfoStreamWriter {
public:
    using MPPSummaryInfoStreamWriter::MPPSummaryInfoStreamWriter;

protected:
    void openData(MPPSummaryInfoData& data) const override { data.open(); }
    void createFieldAliasesData(SummaryProperties& properties, const MPPSummaryInformation& info) const override;
};

/// Writes "\x05DocumentSummaryInformation".
class MPP12ProjectDocSInfoWriter : public MPPSummaryInfoStreamWriter {
public:
    using MPPSummaryInfoStreamWriter::MPPSummaryInfoStreamWriter;

protected:
    void openData(MPPSummaryInfoData& data) const override { data.openDoc(); }
    void createFieldAliasesData(SummaryProperties& properties, const MPPSummaryInformation& info) const override;
};

} // namespace brackwater
