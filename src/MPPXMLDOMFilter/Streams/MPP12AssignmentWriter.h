#pragma once

#include "MPPXMLDOMFilter/Streams/DateEncoder.h"
#include "MPPXMLDOMFilter/Streams/MPPRowStorageWriter.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace brackwater {

/// Writes the storage "TBkndAssn": which resource works on which task.
class MPP12AssignmentWriter : public MPPRowStorageWriter {
public:
    using MPPRowStorageWriter::MPPRowStorageWriter;

    /// Runs once before any stream is written: drops assignments without a task, sorts the others by ID, numbers them
    /// from 1 and moves first baselines out.
    static void preprocessProject(MPPProject& project);

    /// Var2Data types of a baseline by its number, counted from 1; they raise TooManyBaselinesException past 10.
    [[nodiscard]] static std::uint16_t getaselineWorkTypeForIndex(std::size_t index);
    [[nodiscard]] static std::uint16_t getaselineStartTypeForIndex(std::size_t index);
    [[nodiscard]] static std::uint16_t getaselineFinishTypeForIndex(std::size_t index);

protected:
    [[nodiscard]] RowStorageLayout layout() const override;
    void writeVar2Data(StreamOutput& stream) override;
    void writeVarMeta(MPP12VarMeta& varMeta, StreamOutput& stream) override;
    void writeFixedData(StreamOutput& stream) override;
    void writeFixedMeta(MPPFixedMeta& fixedMeta, StreamOutput& stream) override;
    void writeFixed2Data(StreamOutput& stream) override;
    void writeFixed2Meta(MPPFixedMeta& fixed2Meta, StreamOutput& stream) override;

private:
    /// A text of a log line that neighbours often share.
    struct LoggedWork {
        std::uint64_t bits = 0;
        std::string text;
    };

    /// The elements of an assignment, type beside payload; raises TooManyBaselinesException past 10.
    template <typename Visitor>
    void visitElements(const MPPAssignment& assignment, Visitor& element);
    void writeAssignmentFixedData(const MPPAssignment& assignment);
    void writeAssignmentFixedMeta(MPPFixedMeta& fixedMeta, const MPPAssignment& assignment);
    void logAssignment(const MPPAssignment& assignment);
    [[nodiscard]] const std::string& loggedWork(double work);
    [[nodiscard]] const std::string& loggedResource(const MPPResource* resource);
    void writeHoleFixedData(std::uint64_t id);
    /// The ID of the last assignment: the rows count up to it.
    [[nodiscard]] std::uint64_t lastID() const;
    /// Null for an ID that no assignment has.
    [[nodiscard]] const MPPAssignment* assignmentWithID(std::uint64_t id) const;

    DateEncoder _dates;
    EncodedDate _momentOfWriting{};
    std::string _logLine; ///< kept for its memory
    LoggedWork _loggedWork;
    std::unordered_map<const MPPResource*, std::string> _loggedResources; ///< made once each
};

} // namespace brackwater
