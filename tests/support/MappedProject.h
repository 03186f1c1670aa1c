#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLDocumentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"
#include "support/ExpectException.h"
#include "support/LogCapture.h"
#include "support/ScenarioBuilder.h"

#include <memory>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace brackwater::test {

/// A completely mapped scenario, with its log.
class MappedProject {
public:
    explicit MappedProject(const ScenarioBuilder& scenario, std::string_view tocProjectXml = "",
                           std::vector<std::shared_ptr<XMLDocument>> baselines = {})
        : _mapper(scenario.document(), tableOfContents(tocProjectXml), std::move(baselines), std::nullopt) {
        _mapper.map();
        if (!_mapper.mspdiXmlDoc())
            throw std::runtime_error("not mapped: " + _mapper.notMappedReason());
        _project = _mapper.mspdiXmlDoc()->rootElement()->mppDomObject();
    }

    [[nodiscard]] const MPPProject& operator*() const { return *_project; }
    [[nodiscard]] const MPPProject* operator->() const { return _project.get(); }
    [[nodiscard]] const std::vector<std::string>& log() const { return _log.lines(); }
    [[nodiscard]] bool logged(std::string_view text) const { return _log.contains(text); }

    /// The children of the n-th mapped task (0 is the top) from the log, each as "Name=value".
    [[nodiscard]] std::vector<std::string> childrenOfTask(std::size_t position) const {
        return childrenOf(position, "Task /");
    }
    [[nodiscard]] std::vector<std::string> childrenOfAssignment(std::size_t position) const {
        return childrenOf(position, "Assignment /");
    }

private:
    [[nodiscard]] std::vector<std::string> childrenOf(std::size_t position, std::string_view mark) const {
        std::vector<std::string> children;
        std::size_t seen = 0;
        for (const std::string& line : _log.lines()) {
            const std::size_t place = line.find(mark);
            if (place == std::string::npos)
                continue;
            std::string child = line.substr(place + mark.size());
            if (child.starts_with("UID =") && ++seen > position + 1)
                break;
            if (seen != position + 1)
                continue;
            if (const std::size_t equals = child.find(" =\""); equals != std::string::npos)
                child = child.substr(0, equals) + "=" + child.substr(equals + 3, child.size() - equals - 4);
            children.push_back(child);
        }
        return children;
    }

    LogCapture _log;
    MSPEMapper _mapper;
    std::shared_ptr<MPPProject> _project;
};

/// Expects that mapping a scenario fails with this check's message.
inline void expectMappingFails(const ScenarioBuilder& scenario, std::string_view message) {
    const LogCapture log;
    MSPEMapper mapper(scenario.document(), tableOfContents(), {}, std::nullopt);
    expectAssertion(message, [&mapper] { mapper.map(); });
    EXPECT_EQ(mapper.mspdiXmlDoc(), nullptr);
}

} // namespace brackwater::test
