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
#include <string>
#include <unordered_map>

namespace brackwater {

/// Writes the storage "TBkndAssn": which resource works on which task.
class MPP12AssignmentWriter : public MPPStreamWriter {
public:
    using MPPStreamWriter::MPPStreamWriter;

    /// Runs once before any stream is written: drops assignments without a task, sorts the others by ID, numbers them
    /// from 1 and moves first baselines out.
    static void preprocessProject(MPPProject& project);

    /// Var2Data types of a baseline by its number, counted from 1; they raise TooManyBaselinesException past 10.
    [[nodiscard]] static std::uint16_t getaselineWorkTypeForIndex(std::size_t index);
    [[nodiscard]] static std::uint16_t getaselineStartTypeForIndex(std::size_t index);
    [[nodiscard]] static std::uint16_t getaselineFinishTypeForIndex(std::size_t index);

protected:
    void writeSteps() override;

private:
    /// A text of a log line that neighbours often share.
    struct LoggedWork {
        std::uint64_t bits = 0;
        std::string text;
    };

    void writeVar2Data();
    void writeVarMeta();
    void writeFixedData();
    void writeFixedMeta();
    void writeFixed2Data();
    void writeFixed2Meta();

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

    std::shared_ptr<MPPVar2Data> _var2Data = std::make_shared<MPPVar2Data>();
    std::shared_ptr<MPPFixedData> _fixedData = std::make_shared<MPPFixedData>();
    std::shared_ptr<MPPFixedData> _fixed2Data = std::make_shared<MPPFixedData>();
    DateEncoder _dates;
    EncodedDate _momentOfWriting{};
    std::string _logLine; ///< kept for its memory
    LoggedWork _loggedWork;
    std::unordered_map<const MPPResource*, std::string> _loggedResources; ///< made once each
};

} // namespace brackwater
