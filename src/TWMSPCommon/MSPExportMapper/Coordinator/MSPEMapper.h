#pragma once

#include "Platform/Files/FileURL.h"
#include "Platform/Values/PerThread.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

class ExportProgress;
class MSPEBaseline;
class MSPECalendarMapper;
class MSPEIdMapper;
class MSPEProjectMapper;
class MSPEXMLDocumentAdapter;
class MSPEXMLProjectAdapter;
class XMLDocument;
class XMLElement;
struct MPPConstraint;

/// The hub of one export: holds the source documents, the growing result, and the sub-mappers' shared state. While a
/// helper thread maps tasks ahead, it has a project, links and counters of its own; it changes nothing else.
class MSPEMapper {
public:
    /// `zelbXmlDoc` may be null (no scenario matched the edited one); nothing is mapped then. A document's index in
    /// `baselines` is its baseline number. The counters below restart with each coordinator, so that every bundle of a
    /// list is exported as if it were alone. `keepsSource`: the mappers keep the source's values in the records.
    MSPEMapper(std::shared_ptr<XMLDocument> zelbXmlDoc, std::shared_ptr<XMLDocument> zelbTOCXmlDoc,
               std::vector<std::shared_ptr<XMLDocument>> baselines, const std::optional<FileURL>& templateUrl,
               bool keepsSource = false);
    ~MSPEMapper();
    MSPEMapper(const MSPEMapper&) = delete;
    MSPEMapper& operator=(const MSPEMapper&) = delete;

    /// Maps the main document; the result is `mspdiXmlDoc`. Silently ignores a document that is not a scenario of the
    /// source format; `notMappedReason` then says why. Raises what the sub-mappers raise.
    void map();

    /// The result; null until `map` succeeds.
    [[nodiscard]] const std::shared_ptr<MSPEXMLDocumentAdapter>& mspdiXmlDoc() const noexcept { return _mspdiXmlDoc; }
    /// Why `map` ignored the document, a sentence for people; empty before `map` and after success.
    [[nodiscard]] const std::string& notMappedReason() const noexcept { return _notMappedReason; }

    [[nodiscard]] const std::shared_ptr<XMLDocument>& zelbXmlDoc() const noexcept { return _zelbXmlDoc; }
    [[nodiscard]] const std::shared_ptr<XMLDocument>& zelbTOCXmlDoc() const noexcept { return _zelbTOCXmlDoc; }
    [[nodiscard]] const std::vector<MSPEBaseline>& zelbBaselines() const noexcept { return _zelbBaselines; }
    [[nodiscard]] int mppVersion() const noexcept { return _mppVersion; }
    [[nodiscard]] bool keepsSource() const noexcept { return _keepsSource; }
    /// Notified of each task; may be null.
    [[nodiscard]] ExportProgress* progress() const noexcept { return _progress; }
    void setProgress(ExportProgress* progress) noexcept { _progress = progress; }

    /// On how many threads it may work at once, the caller's included. The result and the log are the same for any
    /// number.
    void setThreads(int threads) noexcept { _threads = threads; }
    [[nodiscard]] bool isWorthAHelper(std::size_t tasks) const noexcept; ///< whether so many gain from a second thread

    /// The calling thread's root element; null until the project mapper creates it.
    [[nodiscard]] const std::shared_ptr<MSPEXMLProjectAdapter>& mspdiProject() const noexcept {
        return _growing.own().project;
    }
    void setMspdiProject(std::shared_ptr<MSPEXMLProjectAdapter> project);
    /// Null until the project mapper sets it.
    [[nodiscard]] const MSPEIdMapper* idMapper() const noexcept { return _idMapper.get(); }
    void setIdMapper(std::unique_ptr<MSPEIdMapper> idMapper);
    /// Null outside `map`.
    [[nodiscard]] MSPEProjectMapper* projectMapper() const noexcept { return _projectMapper.get(); }
    [[nodiscard]] MSPECalendarMapper* calendarMapper() const noexcept { return _calendarMapper.get(); }

    using Constraints = std::vector<std::shared_ptr<MPPConstraint>>;

    /// Every link record of the calling thread, in order of creation.
    [[nodiscard]] const Constraints& constraints() const noexcept { return _growing.own().constraints; }
    void addConstraint(std::shared_ptr<MPPConstraint> constraint);
    /// Takes the records of the calling thread.
    [[nodiscard]] Constraints takeConstraints() noexcept;

    // Counters of the calling thread. Each returns the counter's value and then adds 1. Tasks and resources count from
    // 0, the others from 1.
    [[nodiscard]] static std::int64_t nextTaskID();
    [[nodiscard]] static std::int64_t nextResourceID();
    [[nodiscard]] static std::int64_t nextAssignmentUID();
    [[nodiscard]] static std::int64_t nextCalendarUID();
    /// Lets the two counters of tasks go on from elsewhere.
    static void continueWith(std::int64_t taskID, std::int64_t assignmentUID) noexcept;

private:
    struct Growing {
        std::shared_ptr<MSPEXMLProjectAdapter> project;
        Constraints constraints;
    };

    [[nodiscard]] std::string faultOfRoot() const;

    std::shared_ptr<XMLDocument> _zelbXmlDoc;
    std::shared_ptr<XMLDocument> _zelbTOCXmlDoc;
    std::vector<MSPEBaseline> _zelbBaselines;
    int _mppVersion = 0;
    bool _keepsSource = false;
    ExportProgress* _progress = nullptr;
    std::string _notMappedReason;
    std::shared_ptr<MSPEXMLDocumentAdapter> _mspdiXmlDoc;
    std::unique_ptr<MSPEIdMapper> _idMapper;
    std::unique_ptr<MSPEProjectMapper> _projectMapper;
    std::unique_ptr<MSPECalendarMapper> _calendarMapper;
    int _threads = 1;
    PerThread<Growing> _growing;
};

} // namespace brackwater
