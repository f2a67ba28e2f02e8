#include "diagnostics/product_settings.h"

namespace tabulon {

std::string ProductSetting(Globals& g, const std::string& name, const std::string& builtIn) {
    const std::string set = ToText(g.Registry.RegistryGetKeyValue(HKEY_LOCAL_MACHINE, ProductKey, name));
    return set.empty() ? builtIn : set;
}

}  // namespace tabulon
