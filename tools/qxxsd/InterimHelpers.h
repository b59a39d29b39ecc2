#pragma once

namespace Qxxsd {

// The helpers generated code calls, emitted into the generated header until the library ships them
// in its header for generated code.
extern const wchar_t* const kInterimHelpers;

} // namespace Qxxsd
