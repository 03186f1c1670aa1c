#pragma once

#include "TextOutput.h"

#include <cstdint>
#include <vector>

namespace brackwater::inspect {

/// Writes a JSON document, indented by two blanks a level. Within an object each value follows its key.
class JsonWriter {
public:
    explicit JsonWriter(Sink sink) : _out(std::move(sink)) {}

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }
    void key(std::string_view name);

    void text(std::string_view value);
    void number(std::int64_t value);
    /// As short as it can be without losing a bit; null for what is no number.
    void number(double value);
    void boolean(bool value);
    void null();
    /// Ends the document.
    void finish();

private:
    void begin(char bracket);
    void end(char bracket);
    /// What stands between the last thing and the next.
    void separate();
    void newLine();

    TextOutput _out;
    std::vector<bool> _hasChildren; ///< of each open object or array
    bool _afterKey = false;
};

} // namespace brackwater::inspect
