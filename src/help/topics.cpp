#include "help/topics.h"

#include <algorithm>

#include "help/html_reader.h"
#include "help/limits.h"
#include "platform/text.h"

namespace tabulon {

namespace {

/// Lists stand in one another as "ul", each entry is an "object" with its "param"s.
class TopicReader final : public HtmlVisitor {
  public:
    void Start(std::string_view element, const HtmlAttributes& attributes) override {
        if (element == "ul") ++m_depth;
        if (element == "object" && EqualNoCase(ValueOf(attributes, "type"), "text/sitemap")) Begin();
        if (element == "param" && m_inTopic) Read(ValueOf(attributes, "name"), ValueOf(attributes, "value"));
    }
    void End(std::string_view element) override {
        if (element == "ul" && m_depth > 0) --m_depth;
        if (element == "object" && m_inTopic) Finish();
    }

    std::vector<HelpTopic> Topics;

  private:
    void Begin() {
        m_topic = {};
        m_lastName.clear();
        m_inTopic = true;
    }
    void Read(std::string_view name, std::string_view value) {
        if (EqualNoCase(name, "Name") || EqualNoCase(name, "Keyword")) {
            m_lastName = value.substr(0, help_limits::TitleBytes);
            if (m_topic.Title.empty()) m_topic.Title = m_lastName;
        }
        const bool leads = EqualNoCase(name, "Local") || EqualNoCase(name, "URL");
        if (leads && !value.empty() && m_topic.Targets.size() < help_limits::TargetsOfATopic)
            m_topic.Targets.push_back({m_lastName, std::string(value)});
    }
    void Finish() {
        m_inTopic = false;
        if (m_topic.Title.empty() || m_count >= help_limits::Topics) return;
        ++m_count;
        ListAtDepth().push_back(std::move(m_topic));
    }
    // An entry that stands deeper than the one before it by more than one is taken as the child of that.
    std::vector<HelpTopic>& ListAtDepth() {
        std::vector<HelpTopic>* list = &Topics;
        for (int depth = 1; depth < std::min(m_depth, help_limits::TopicDepth) && !list->empty(); ++depth)
            list = &list->back().Children;
        return *list;
    }

    HelpTopic m_topic;
    std::string m_lastName;
    bool m_inTopic = false;
    int m_depth = 0;
    std::size_t m_count = 0;
};

}  // namespace

std::vector<HelpTopic> ReadTopics(std::string_view html) {
    TopicReader reader;
    ReadHtml(html, reader);
    return std::move(reader.Topics);
}

}  // namespace tabulon
