#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace brackwater::inspect {

/// Takes a piece of a long text; pieces come in order.
using Sink = std::function<void(std::string_view)>;

/// Text on its way to a sink, in pieces of bounded size: a large file's report need not stand in memory.
class TextOutput {
public:
    explicit TextOutput(Sink sink) : _sink(std::move(sink)) {}
    TextOutput(const TextOutput&) = delete;
    TextOutput& operator=(const TextOutput&) = delete;
    ~TextOutput() = default;

    /// The place to append to. A call may hand over what stands there.
    [[nodiscard]] std::string& text() {
        constexpr std::size_t piece = std::size_t{64} << 10;
        if (_text.size() >= piece)
            flush();
        return _text;
    }
    /// Needed at the end.
    void flush() {
        _sink(_text);
        _text.clear();
    }

private:
    Sink _sink;
    std::string _text;
};

/// Bytes of the UTF-8 character that the text begins with; 0 where it begins with none.
[[nodiscard]] std::size_t characterSize(std::string_view text);

/// Appends UTF-8 text in which `replacement` may put a text in place of an ASCII character; an empty one leaves it.
/// What is no UTF-8 becomes U+FFFD, byte by byte.
template <typename Replacement>
void appendReplacing(std::string& out, std::string_view text, const Replacement& replacement) {
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        const std::string_view character = text.substr(0, size);
        const std::string_view other = size == 1 ? std::string_view(replacement(text.front())) : std::string_view();
        out += size == 0 ? std::string_view("\xEF\xBF\xBD") : (other.empty() ? character : other);
        text.remove_prefix(size == 0 ? 1 : size);
    }
}

} // namespace brackwater::inspect
