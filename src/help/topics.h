#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

/// A place that a topic names, as a link from the root.
struct HelpTarget {
    std::string Title;
    std::string Link;
};

/// An entry of the contents or of the index. A heading may lead nowhere, a keyword to several places.
struct HelpTopic {
    std::string Title;
    std::vector<HelpTarget> Targets;
    std::vector<HelpTopic> Children;
};

/// Reads a list of topics (.hhc, .hhk) in UTF-8. What is out of order is taken as well as can be; what is
/// beyond the limits is left out.
std::vector<HelpTopic> ReadTopics(std::string_view html);

}  // namespace tabulon
