#include "Platform/Values/Exception.h"

#include <utility>

namespace brackwater {

Exception::Exception(std::string_view name, std::string reason, std::string userInfo)
    : _name(name), _reason(std::move(reason)), _userInfo(std::move(userInfo)), _what(_name + ": " + _reason) {}

void failAssertion(std::string message) { throw Exception(kInternalInconsistencyException, std::move(message)); }

} // namespace brackwater
