#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace brackwater {

/// The bytes of a document, fetched piece by piece, so that a large one takes no room beside its growing tree.
class XMLSource {
public:
    /// The library counts bytes in 32 bits; larger documents are refused.
    static constexpr std::size_t kLargestText = 0x7FFFFFFF - 1;

    /// A regular file. Read rather than mapped, since a mapped file that somebody shortens meanwhile ends the process.
    [[nodiscard]] static std::unique_ptr<XMLSource> ofFile(const std::string& path);
    /// A text, which must outlive the source.
    [[nodiscard]] static std::unique_ptr<XMLSource> ofText(std::string_view text);

    virtual ~XMLSource() = default;
    XMLSource(const XMLSource&) = delete;
    XMLSource& operator=(const XMLSource&) = delete;

    /// Goes to the first byte, again where it was open before. False with `fault` telling why.
    [[nodiscard]] virtual bool open(std::string& fault) = 0;
    /// The next bytes, fewer than fit only at the end; gives their number, or nothing with `fault` telling why.
    [[nodiscard]] virtual std::optional<std::size_t> read(std::span<char> bytes, std::string& fault) = 0;
    /// Bytes that are still to come.
    [[nodiscard]] virtual std::size_t remaining() const noexcept = 0;

protected:
    XMLSource() = default;
};

} // namespace brackwater
