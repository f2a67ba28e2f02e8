#pragma once

#include <string>
#include <string_view>

namespace tabulon {

/// What can be read on a page.
struct PageText {
    std::string Title;
    std::string Text;      // a line for each paragraph, list entry or row
    bool IsSimple = true;  // false when elements stand in one another more deeply than anybody writes them
};

PageText ReadPageText(std::string_view html);

}  // namespace tabulon
