#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"

#include "MPPXMLDOMFilter/Adapters/ElementConversions.h"
#include "Platform/Values/Exception.h"

#include <fmt/format.h>

namespace brackwater {

MSPEXMLAdapter::MSPEXMLAdapter(std::string_view name, MSPEMapper* mapper) : _name(name), _mapper(mapper) {}

MSPEXMLAdapter::~MSPEXMLAdapter() = default;

void MSPEXMLAdapter::addChild(const std::shared_ptr<MSPEXMLAdapter>&) {}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLAdapter::addChildElementWithName(std::string_view) { return nullptr; }

std::shared_ptr<MSPEXMLAdapter> MSPEXMLAdapter::addChildElementWithName(std::string_view, ElementText) {
    return nullptr;
}

void MSPEXMLAdapter::insertChild(const std::shared_ptr<MSPEXMLAdapter>& child, int) { addChild(child); }

std::shared_ptr<MSPEXMLAdapter> MSPEXMLAdapter::insertChildElementWithName(std::string_view name, int) {
    return addChildElementWithName(name);
}

std::shared_ptr<MSPEXMLAdapter> MSPEXMLAdapter::insertChildElementWithName(std::string_view name,
                                                                           ElementText stringValue, int) {
    return addChildElementWithName(name, stringValue);
}

void MSPEXMLAdapter::addComment(ElementText) {}

void MSPEXMLAdapter::failElementWithName(std::string_view className, std::string_view name) {
    failAssertion(fmt::format("!!! PROHIBITED CONSTRUCTOR CALL: +[{} elementWithName:@\"{}\"]", className, name));
}

void MSPEXMLAdapter::failInitWithName(std::string_view className, std::string_view name) {
    failAssertion(fmt::format("!!! PROHIBITED CONSTRUCTOR CALL: -[{} initWithName:@\"{}\"]", className, name));
}

void MSPEXMLAdapter::failInitWithName(std::string_view className, std::string_view name, ElementText stringValue) {
    failAssertion(fmt::format("!!! PROHIBITED CONSTRUCTOR CALL: -[{} initWithName:@\"{}\" stringValue:@\"{}\"]",
                              className, name, conversions::shown(stringValue)));
}

std::string_view MSPEXMLAdapter::classNameOf(const MSPEXMLAdapter* adapter) noexcept {
    return adapter ? adapter->className() : "(null)";
}

} // namespace brackwater
