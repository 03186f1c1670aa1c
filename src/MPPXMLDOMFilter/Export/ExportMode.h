#pragma once

namespace brackwater {

/// What a file says where readers take the exact export's bytes differently from what the source means.
enum class ExportMode {
    Exact,     ///< the values as they have always been written
    Corrected, ///< the source's values, in the form that real files hold and readers show
};

} // namespace brackwater
