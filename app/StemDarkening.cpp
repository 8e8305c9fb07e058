// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// Qt turns on FreeType's stem darkening for CFF fonts, which makes regular Chinese text look bold:
// it is meant for drawing with linear gamma, and Qt Quick's software scene graph does not do that.
// Qt has no setting for it, so the program takes FreeType's function by its name, refuses that one
// property and passes everything else on.

#include <dlfcn.h>
#include <string_view>

namespace {

constexpr int missingProperty = 0x0C; // FT_Err_Missing_Property

using PropertySetter = int(void *library, const char *module, const char *property,
                           const void *value);

} // namespace

extern "C" [[gnu::used, gnu::visibility("default")]] int
FT_Property_Set(void *library, const char *module, const char *property, const void *value) {
    if (std::string_view(property) == "no-stem-darkening")
        return missingProperty;
    static auto *const next =
        reinterpret_cast<PropertySetter *>(dlsym(RTLD_NEXT, "FT_Property_Set"));
    return next ? next(library, module, property, value) : missingProperty;
}
