#pragma once

#include "Platform/Xml/XMLElement.h"

#include <memory>
#include <optional>
#include <string_view>

namespace brackwater {

class XMLDocument;

/// A scenario document that the project is compared with, queried by source ids.
class MSPEBaseline {
public:
    explicit MSPEBaseline(std::shared_ptr<XMLDocument> document);

    [[nodiscard]] std::optional<XMLElement> getTaskById(std::string_view id) const;
    [[nodiscard]] std::optional<XMLElement> getResourceById(std::string_view id) const;
    [[nodiscard]] std::optional<XMLElement> getAssignmentByTaskId(std::string_view taskId,
                                                                  std::string_view resourceId) const;

private:
    std::shared_ptr<XMLDocument> _xmlDoc;
};

} // namespace brackwater
