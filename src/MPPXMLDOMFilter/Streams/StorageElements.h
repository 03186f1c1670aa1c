#pragma once

#include "MPPXMLDOMFilter/Buffers/MPP12VarMeta.h"
#include "MPPXMLDOMFilter/Buffers/MPPData.h"
#include "MPPXMLDOMFilter/Buffers/MPPVar2Data.h"
#include "MPPXMLDOMFilter/Streams/DateEncoder.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// The elements of a row in "Var2Data". A storage lists them in one function, type beside payload:
///
///     element(kTitleType, unicodeText(task.title));
///     element(TextFieldType{position}, unicodeText(value));
///
/// and hands it a visitor, one of these: for the payloads, for the records of "VarMeta", for their number. A type is a
/// number or what becomes one when it is asked for; only then does it raise where the format has none.
namespace brackwater {

/// Writes the payloads; the elements are found by their order.
class ElementPayloads {
public:
    explicit ElementPayloads(MPPVar2Data& data) : _data(data) {}
    template <typename Type, typename WritePayload>
    void operator()(const Type& /*type*/, const WritePayload& writePayload) {
        _data.startNewElement();
        writePayload(_data);
        _data.closeCurrentElement();
    }

private:
    MPPVar2Data& _data;
};

/// Writes the payloads of elements that are found by their owner and type.
class TypedElementPayloads {
public:
    TypedElementPayloads(MPPVar2Data& data, std::uint64_t ownerID) : _data(data), _ownerID(ownerID) {}
    template <typename WritePayload>
    void operator()(std::uint64_t type, const WritePayload& writePayload) {
        _data.startNewElementWithType(type, _ownerID);
        writePayload(_data);
        _data.closeCurrentElement();
    }

private:
    MPPVar2Data& _data;
    std::uint64_t _ownerID;
};

/// Writes the records of "VarMeta", of elements in the order of their payloads.
class ElementRecords {
public:
    ElementRecords(MPP12VarMeta& varMeta, std::uint64_t ownerID) : _varMeta(varMeta), _ownerID(ownerID) {}
    template <typename WritePayload>
    void operator()(std::uint64_t type, const WritePayload& /*writePayload*/) {
        _varMeta.writeNextElementMetaWithID(_ownerID, type);
    }

private:
    MPP12VarMeta& _varMeta;
    std::uint64_t _ownerID;
};

/// Writes the records of "VarMeta", of elements in an order of their own.
class FoundElementRecords {
public:
    FoundElementRecords(MPP12VarMeta& varMeta, std::uint64_t ownerID) : _varMeta(varMeta), _ownerID(ownerID) {}
    template <typename WritePayload>
    void operator()(std::uint64_t type, const WritePayload& /*writePayload*/) {
        _varMeta.writeElementMetaWithType(type, _ownerID);
    }

private:
    MPP12VarMeta& _varMeta;
    std::uint64_t _ownerID;
};

class ElementCount {
public:
    template <typename Type, typename WritePayload>
    void operator()(const Type& /*type*/, const WritePayload& /*writePayload*/) {
        ++_count;
    }
    [[nodiscard]] std::uint32_t count() const noexcept { return _count; }

private:
    std::uint32_t _count = 0;
};

// Payloads of one value. They refer to it, so that a visit that wants no payload costs nothing.

[[nodiscard]] inline auto unicodeText(std::string_view text) {
    return [text](MPPData& data) { data.writeString(text, MPPEncoding::Unicode); };
}
[[nodiscard]] inline auto real(double value) {
    return [value](MPPData& data) { data.writeDouble(value); };
}
[[nodiscard]] inline auto zeroes(std::size_t count) {
    return [count](MPPData& data) { data.writeZeroesBlockOfSize(count); };
}
[[nodiscard]] inline auto date(const std::optional<Date>& value, DateEncoder& dates) {
    return [&value, &dates](MPPData& data) { data.writeInteger(dates(value).bytes); };
}

} // namespace brackwater
