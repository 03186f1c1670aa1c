#pragma once

#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "Platform/Time/Date.h"
#include "support/ByteImage.h"
#include "support/MemoryTemplate.h"
#include "support/MemoryWriter.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace brackwater::test {

/// The instant that a row shows as `days` and `tenths` of a minute in the zone of these tests.
[[nodiscard]] Date dateAt(int days, int tenths = 0);

/// A project in memory and the writing of one of its entries into memory. The zone is UTC.
class StreamsTest : public testing::Test {
protected:
    StreamsTest();

    MPPTask& addTask(const std::string& title, MPPTask* parent = nullptr);
    MPPResource& addResource(const std::string& name);
    MPPAssignment& addAssignment(MPPTask* task, MPPResource* resource);
    MPPConstraint& addLink(MPPTask* from, MPPTask* to);

    /// All four preprocessing operations in their order.
    void preprocess();

    /// Runs a writer over the entry; the streams are then in `output`.
    template <typename Writer>
    bool write() {
        return writeWith<Writer>(memoryTemplate(templateStreams));
    }
    template <typename Writer>
    bool writeWith(std::shared_ptr<MPPFormatReader> reader) {
        Writer writer(std::make_shared<MemoryWriter>(output), std::move(reader));
        const bool written = writer.writeDataForProject(&project);
        failureReason = writer.failureReason();
        return written;
    }
    [[nodiscard]] const Bytes& stream(const std::string& name) const;

    MPPProject project;
    std::map<std::string, Bytes> templateStreams{{"Props", {1, 2, 3, 4}}, {"VarMeta", {5, 6, 7}}};
    std::shared_ptr<MemoryOutput> output = std::make_shared<MemoryOutput>();
    std::string failureReason;
};

/// A record of "VarMeta".
struct VarMetaRecord {
    std::uint32_t id;
    std::uint16_t type;
    Bytes payload; ///< of the element in "Var2Data" at the record's offset
};
/// Reads the records; checks the header, the description ending and that offsets point at elements.
[[nodiscard]] std::vector<VarMetaRecord> varMetaRecords(const Bytes& varMeta, const Bytes& var2Data,
                                                        std::uint16_t descriptionEnding);
/// "id:type" of each record, separated by blanks.
[[nodiscard]] std::string idsAndTypes(const std::vector<VarMetaRecord>& records);

/// The record at an index of a "FixedMeta"; checks the header and that its offset is that of a row of the size.
[[nodiscard]] Bytes metaRecord(const Bytes& meta, std::size_t recordSize, std::size_t index);

} // namespace brackwater::test
