#include "helpwindow/help_page.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

#include "help/page_text.h"
#include "qt/look.h"
#include "qt/picture_reader.h"
#include "qt/text.h"

namespace tabulon {

namespace {

constexpr char Scheme[] = "help";
constexpr qint64 PixelsOfAPage = 40'000'000;
constexpr int MarkLimit = 500;
constexpr char FineMark[] = "@2x";
constexpr qreal FineRatio = 2;
constexpr int PlaceholderSide = 20;
constexpr qreal PageMargin = 16;
constexpr qreal SmallestRoom = 200;

QString DefaultStyle() {
    return QString("body { color: %1; } h1, h2, h3 { color: %2; font-family: Quicksand; } a { color: %2; }")
        .arg(Look::Ink.name(), Look::Teal.name());
}

/// Stands where a picture is missing, damaged or too large.
QImage Placeholder() {
    QImage image(PlaceholderSide, PlaceholderSide, QImage::Format_ARGB32);
    image.fill(Look::Cream);
    QPainter painter(&image);
    painter.setPen(Look::Ink);
    painter.drawRect(0, 0, PlaceholderSide - 1, PlaceholderSide - 1);
    painter.drawLine(0, 0, PlaceholderSide - 1, PlaceholderSide - 1);
    return image;
}

QString PlainPage(const QString& text) {
    return "<html><body><pre style=\"white-space: pre-wrap\">" + text.toHtmlEscaped() +
           "</pre></body></html>";
}

QString MissingPage(const QString& file) {
    return "<html><head><title>Missing page</title></head><body><h2>This page is missing</h2><p>The help "
           "file has "
           "no page with the name <b>" +
           file.toHtmlEscaped() + "</b>.</p></body></html>";
}

}  // namespace

HelpPage::HelpPage(const HelpBook& book) : m_book(book) {
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    setAccessibleName("Help page");
    document()->setDefaultStyleSheet(DefaultStyle());
    document()->setDocumentMargin(PageMargin);
    connect(this, &QTextBrowser::anchorClicked, this, [this](const QUrl& url) { Follow(url); });
    connect(this, &QTextBrowser::sourceChanged, this, [this] { setExtraSelections({}); });
}

void HelpPage::ShowPage(const QString& file, const QString& fragment) {
    QUrl url;
    url.setScheme(Scheme);
    url.setPath("/" + file);
    if (!fragment.isEmpty()) url.setFragment(fragment);
    setSource(url, QTextDocument::HtmlResource);
}

QString HelpPage::File() const {
    return ToQt(ResolveLink({}, FromQt(source().toString(QUrl::FullyEncoded))).File);
}

void HelpPage::Mark(const QStringList& words) {
    QList<ExtraSelection> marks;
    QTextCharFormat format;
    format.setBackground(Look::Yellow);
    format.setForeground(Look::Ink);
    for (const QString& word : words) {
        QTextCursor found = document()->find(word);
        for (; !found.isNull() && marks.size() < MarkLimit; found = document()->find(word, found)) {
            const QChar before = document()->characterAt(found.selectionStart() - 1);
            if (!before.isLetterOrNumber()) marks.append({found, format});
        }
    }
    setExtraSelections(marks);
}

QVariant HelpPage::loadResource(int type, const QUrl& name) {
    const QUrl url = source().resolved(name);
    const bool inside = url.scheme() == Scheme;
    const HelpLink link = ResolveLink({}, FromQt(url.toString(QUrl::FullyEncoded)));
    const QString file = inside ? ToQt(link.File) : QString();
    if (type == QTextDocument::ImageResource) return PictureOf(file);
    if (!inside) return QString();
    if (type != QTextDocument::HtmlResource) return ToQt(m_book.TextOf(link.File));
    m_pixelsLeft = PixelsOfAPage;
    return Html(file);
}

void HelpPage::Follow(const QUrl& url) {
    const HelpLink link = ResolveLink({}, FromQt(url.toString(QUrl::FullyEncoded)));
    if (link.Kind == LinkKind::Page)
        ShowPage(ToQt(link.File), ToQt(link.Fragment));
    else if (onOutside)
        onOutside(link);
}

QString HelpPage::Html(const QString& file) const {
    const std::string name = FromQt(file);
    if (!m_book.Find(name)) return MissingPage(file);
    const std::string text = m_book.TextOf(name);
    if (file.endsWith(".txt", Qt::CaseInsensitive)) return PlainPage(ToQt(text));
    const bool picture = !HelpBook::IsPage(name);
    if (picture) return "<html><body><p><img src=\"/" + file.toHtmlEscaped() + "\"></p></body></html>";
    const PageText page = ReadPageText(text);
    return page.IsSimple ? ToQt(text) : PlainPage(ToQt(page.Text));
}

/// A picture may come with a finer one for dense screens: name@2x.png beside name.png. One that is wider than
/// the page is shown smaller.
QImage HelpPage::PictureOf(const QString& file) {
    const qsizetype dot = file.lastIndexOf('.');
    const QString fineName = file.left(dot) + FineMark + file.mid(dot);
    const std::string* fine = devicePixelRatioF() > 1 && dot >= 0 ? m_book.Find(FromQt(fineName)) : nullptr;
    const std::string* bytes = fine ? fine : m_book.Find(FromQt(file));
    QImage image = bytes ? DecodePicture(*bytes, m_pixelsLeft) : QImage();
    if (image.isNull()) return Placeholder();
    m_pixelsLeft -= qint64{image.width()} * image.height();
    const qreal room =
        std::max(width() - verticalScrollBar()->sizeHint().width() - 2 * PageMargin, SmallestRoom);
    image.setDevicePixelRatio(std::max(fine ? FineRatio : 1.0, image.width() / room));
    return image;
}

}  // namespace tabulon
