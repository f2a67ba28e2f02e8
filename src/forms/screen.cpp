#include "forms/screen.h"

#include <algorithm>

namespace tabulon {

void Screen::Loaded(Form& form) { m_loaded.push_back(&form); }

void Screen::Forget(Form& form) { std::erase(m_loaded, &form); }

}  // namespace tabulon
