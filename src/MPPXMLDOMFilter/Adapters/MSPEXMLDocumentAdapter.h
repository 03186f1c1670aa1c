#pragma once

#include <memory>
#include <utility>

namespace brackwater {

class MSPEXMLProjectAdapter;

/// The target document: owns its root element, and with it the project.
class MSPEXMLDocumentAdapter {
public:
    explicit MSPEXMLDocumentAdapter(std::shared_ptr<MSPEXMLProjectAdapter> rootElement)
        : _rootElement(std::move(rootElement)) {}
    [[nodiscard]] static std::shared_ptr<MSPEXMLDocumentAdapter>
    documentWithRootElement(std::shared_ptr<MSPEXMLProjectAdapter> rootElement) {
        return std::make_shared<MSPEXMLDocumentAdapter>(std::move(rootElement));
    }

    [[nodiscard]] const std::shared_ptr<MSPEXMLProjectAdapter>& rootElement() const noexcept { return _rootElement; }

private:
    std::shared_ptr<MSPEXMLProjectAdapter> _rootElement;
};

} // namespace brackwater
