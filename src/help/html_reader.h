#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tabulon {

using HtmlAttributes = std::vector<std::pair<std::string, std::string>>;

/// Is told what stands in a page. Names are in small letters.
class HtmlVisitor {
  public:
    virtual ~HtmlVisitor() = default;
    virtual void Start(std::string_view /*element*/, const HtmlAttributes& /*attributes*/) {}
    virtual void End(std::string_view /*element*/) {}
    virtual void Text(std::string_view /*text*/) {}
};

/// Walks through HTML of any quality, in UTF-8. Scripts and styles are passed over. What the visitor throws
/// ends the walk and is thrown on.
void ReadHtml(std::string_view html, HtmlVisitor& visitor);

/// The value of that attribute; empty when there is none.
std::string_view ValueOf(const HtmlAttributes& attributes, std::string_view name);

}  // namespace tabulon
