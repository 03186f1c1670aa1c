#pragma once

#include "MPPXMLDOMFilter/Container/MPPWriter.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"

namespace brackwater {

/// Base of the writers that make an entry anew from the project. One object serves one call.
class MPPStreamWriter : public MPPWriter {
public:
    using MPPWriter::MPPWriter;

    /// Writes the entry. False for a null project, for a second call, and when a step raised a failure, which
    /// `failureReason` then tells; the output stays as far as it got.
    bool writeDataForProject(MPPProject* project) final;

protected:
    /// The writer's steps, in the order of the output. A failure is raised.
    virtual void writeSteps() = 0;

    /// The project being written; valid inside `writeSteps`.
    [[nodiscard]] const MPPProject& project() const noexcept { return *_project; }
    /// For an entry that is itself a stream: writes the whole of it.
    void writeEntry(MPPData& data);

private:
    const MPPProject* _project = nullptr;
};

} // namespace brackwater
