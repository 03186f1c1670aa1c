#include "TWMSPFilterRunners/Command/ExportResult.h"

#include <array>
#include <cstring>

namespace brackwater {

namespace {

constexpr std::array kLossFields = {
    &lossreport::Loss::kind,  &lossreport::Loss::object, &lossreport::Loss::id,   &lossreport::Loss::name,
    &lossreport::Loss::field, &lossreport::Loss::source, &lossreport::Loss::file, &lossreport::Loss::why,
};

class Packer {
public:
    void add(std::uint64_t number) {
        char bytes[sizeof(number)];
        std::memcpy(bytes, &number, sizeof(number));
        _bytes.append(bytes, sizeof(number));
    }
    void add(std::string_view text) {
        add(std::uint64_t{text.size()});
        _bytes.append(text);
    }
    [[nodiscard]] std::string take() { return std::move(_bytes); }

private:
    std::string _bytes;
};

/// Unpacks what the other class packed; missing data is empty.
class Unpacker {
public:
    explicit Unpacker(std::string_view bytes) : _rest(bytes) {}

    std::uint64_t number() {
        std::uint64_t number = 0;
        const std::string_view bytes = taken(sizeof(number));
        if (!bytes.empty())
            std::memcpy(&number, bytes.data(), sizeof(number));
        return number;
    }
    std::string text() {
        const std::uint64_t size = number();
        return std::string(taken(size));
    }
    [[nodiscard]] bool isWhole() const { return _isWhole && _rest.empty(); }
    [[nodiscard]] bool isGood() const { return _isWhole; }

private:
    std::string_view taken(std::uint64_t size) {
        if (size > _rest.size()) {
            _isWhole = false;
            return {};
        }
        const std::string_view bytes = _rest.substr(0, size);
        _rest.remove_prefix(size);
        return bytes;
    }

    std::string_view _rest;
    bool _isWhole = true;
};

} // namespace

std::string packedResult(const ExportResult& result) {
    Packer packer;
    packer.add(std::uint64_t{result.exported});
    packer.add(result.outputName);
    packer.add(result.tasks);
    packer.add(std::uint64_t{result.warnings.size()});
    for (const WarningCount& warning : result.warnings) {
        packer.add(warning.text);
        packer.add(warning.count);
    }
    packer.add(result.fault);
    packer.add(std::uint64_t{result.losses.losses.size()});
    for (const lossreport::Loss& loss : result.losses.losses)
        for (const auto field : kLossFields)
            packer.add(loss.*field);
    packer.add(result.comparisonFault);
    packer.add(std::uint64_t{result.isLogWhole});
    return packer.take();
}

std::optional<ExportResult> unpackedResult(std::string_view bytes) {
    Unpacker unpacker(bytes);
    ExportResult result;
    result.exported = unpacker.number() != 0;
    result.outputName = unpacker.text();
    result.tasks = unpacker.number();
    const std::uint64_t warnings = unpacker.number();
    for (std::uint64_t i = 0; i < warnings && unpacker.isGood(); ++i) {
        std::string text = unpacker.text();
        result.warnings.push_back({std::move(text), unpacker.number()});
    }
    result.fault = unpacker.text();
    const std::uint64_t losses = unpacker.number();
    for (std::uint64_t i = 0; i < losses && unpacker.isGood(); ++i) {
        lossreport::Loss& loss = result.losses.losses.emplace_back();
        for (const auto field : kLossFields)
            loss.*field = unpacker.text();
    }
    result.comparisonFault = unpacker.text();
    result.isLogWhole = unpacker.number() != 0;
    return unpacker.isWhole() ? std::optional(std::move(result)) : std::nullopt;
}

} // namespace brackwater
