#pragma once

#include "Platform/Values/Exception.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace brackwater {

/// A reference to another record. During mapping the other record may not exist yet, and the field holds a proxy, the
/// text of its UID; post-processing replaces it with the record. `Pointer` is the kind of pointer in the field: shared
/// if the record owns its reference, plain if the project's lists own it.
template <typename Record, typename Pointer>
class RecordReference {
public:
    RecordReference() = default;

    [[nodiscard]] bool isUnset() const noexcept { return std::holds_alternative<std::monostate>(_value); }
    [[nodiscard]] bool isProxy() const noexcept { return std::holds_alternative<std::string>(_value); }
    /// The UID text; only for a proxy.
    [[nodiscard]] const std::string& proxyText() const { return std::get<std::string>(_value); }

    /// The record, or null if the field is unset. An unresolved proxy is an error of the mapping.
    [[nodiscard]] Record* record() const {
        if (isUnset())
            return nullptr;
        if (isProxy())
            failAssertion("Unresolved reference to the record with UID '" + proxyText() + "'.");
        return &*std::get<Pointer>(_value);
    }
    /// The pointer itself; null if unset or a proxy.
    [[nodiscard]] Pointer pointer() const {
        const Pointer* pointer = std::get_if<Pointer>(&_value);
        return pointer ? *pointer : Pointer{};
    }

    void setProxyText(std::string_view uid) { _value = std::string(uid); }
    /// A null pointer clears the field.
    void setRecord(Pointer record) {
        if (record)
            _value = std::move(record);
        else
            _value = std::monostate{};
    }
    void clear() { _value = std::monostate{}; }

private:
    std::variant<std::monostate, std::string, Pointer> _value;
};

struct MPPCalendar;
struct MPPResource;
struct MPPTask;

using CalendarReference = RecordReference<MPPCalendar, std::shared_ptr<MPPCalendar>>;
using TaskReference = RecordReference<MPPTask, MPPTask*>;
using ResourceReference = RecordReference<MPPResource, MPPResource*>;

} // namespace brackwater
