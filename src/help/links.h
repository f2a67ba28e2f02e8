#pragma once

#include <string>
#include <string_view>

namespace tabulon {

enum class LinkKind {
    Page,       // a file of the help file
    Web,        // http, https or mailto
    OtherHelp,  // a page of another help file
    Unknown,    // anything else: scripts, files of the machine
};

/// Where a link leads.
struct HelpLink {
    LinkKind Kind = LinkKind::Unknown;
    std::string File;      // of a page: from the root, without a slash at its beginning
    std::string Fragment;  // of a page: without its "#"; may be empty
    std::string Address;   // what stands in the link, for the web
};

/// A link as it stands on the page `page`; from the contents or the index `page` is empty.
HelpLink ResolveLink(std::string_view page, std::string_view link);

}  // namespace tabulon
