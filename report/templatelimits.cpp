#include "templatelimits_p.h"

#include <QList>
#include <QStringView>

#include <algorithm>

namespace coagulation {

namespace {

TemplateLimits::Scope* currentScope = nullptr;

bool isVoidElement(QStringView name)
{
    static const char* const names[] = {"br",   "img",  "hr",    "meta", "link",   "input", "col",
                                        "area", "base", "param", "wbr",  "source", "embed", "track"};
    for (const char* n : names) {
        if (name.compare(QLatin1String(n), Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

bool is(QStringView name, const char* what)
{
    return name.compare(QLatin1String(what), Qt::CaseInsensitive) == 0;
}

// Elements that a following one of the same name closes, as long as no list or table lies between.
bool closesItsSibling(QStringView name)
{
    return is(name, "p") || is(name, "li") || is(name, "td") || is(name, "th") || is(name, "tr") ||
           is(name, "dt") || is(name, "dd") || is(name, "option");
}

bool isBoundary(QStringView name)
{
    return is(name, "table") || is(name, "ul") || is(name, "ol") || is(name, "dl") || is(name, "select");
}

// The end of the tag that starts at from ('<'), quotes respected; -1 when it never ends.
qsizetype tagEnd(const QString& html, qsizetype from)
{
    QChar quote;
    for (qsizetype i = from + 1; i < html.size(); ++i) {
        const QChar c = html.at(i);
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == u'"' || c == u'\'') {
            quote = c;
        } else if (c == u'>') {
            return i;
        }
    }
    return -1;
}

QStringView tagName(QStringView tag)
{
    qsizetype n = 0;
    while (n < tag.size() && (tag.at(n).isLetterOrNumber() || tag.at(n) == u'-' || tag.at(n) == u':'))
        ++n;
    return tag.left(n);
}

// The largest number given to a colspan or rowspan attribute of the tag.
qint64 largestSpan(QStringView tag)
{
    qint64 largest = 0;
    for (const char* attribute : {"colspan", "rowspan"}) {
        qsizetype at = 0;
        while ((at = tag.indexOf(QLatin1String(attribute), at, Qt::CaseInsensitive)) >= 0) {
            at += 7;
            qsizetype i = at;
            while (i < tag.size() &&
                   (tag.at(i).isSpace() || tag.at(i) == u'=' || tag.at(i) == u'"' || tag.at(i) == u'\''))
                ++i;
            qint64 value = 0;
            while (i < tag.size() && tag.at(i).isDigit() && value <= TemplateLimits::maxHtmlSpan)
                value = value * 10 + tag.at(i++).digitValue();
            largest = qMax(largest, value);
        }
    }
    return largest;
}

void check(qint64 amount, qint64 limit, const QString& what)
{
    if (amount > limit)
        throw TemplateLimits::exceeded(what, limit);
}

} // namespace

TemplateLimits::Scope::Scope() : m_outer(currentScope)
{
    currentScope = this;
}

TemplateLimits::Scope::~Scope()
{
    currentScope = m_outer;
}

QString TemplateLimits::exceeded(const QString& what, qint64 limit)
{
    return tr("模板超出限制：%1不能超过 %2。").arg(what).arg(limit);
}

void TemplateLimits::checkItems(qint64 items)
{
    check(items, maxItems, tr("模板中的项目数"));
}

void TemplateLimits::checkCells(qint64 cells)
{
    check(cells, maxCellsPerTable, tr("一个表格的单元格数"));
}

void TemplateLimits::chargeCells(qint64 cells)
{
    checkCells(cells);
    if (currentScope) {
        currentScope->m_cells += cells;
        check(currentScope->m_cells, maxCellsPerTemplate, tr("模板中所有表格的单元格数"));
    }
}

void TemplateLimits::checkColumns(qint64 columns)
{
    check(columns, maxColumns, tr("一个表格的列数"));
}

void TemplateLimits::checkBlocks(qint64 blocks)
{
    check(blocks, maxBlocks, tr("多列表格的列块数"));
}

void TemplateLimits::checkPixels(qint64 pixels)
{
    check(pixels, maxImagePixels, tr("一张图片的像素数"));
    if (currentScope) {
        currentScope->m_pixels += pixels;
        check(currentScope->m_pixels, maxTemplatePixels, tr("模板中所有图片的像素数"));
    }
}

void TemplateLimits::checkText(qint64 length)
{
    check(length, maxTextLength, tr("一段文字的字符数"));
    if (currentScope) {
        currentScope->m_characters += length;
        check(currentScope->m_characters, maxTemplateCharacters, tr("模板中所有文字的字符数"));
    }
}

void TemplateLimits::checkGradientStops(qint64 stops)
{
    check(stops, maxGradientStops, tr("渐变的色标数"));
}

// Counts how deep elements and tables nest the way the rich-text parser builds them, so that
// a document is refused before the parser recurses into it or lays out nested tables, whose
// cost grows with every level.
void TemplateLimits::checkHtml(const QString& html)
{
    QList<QStringView> open;
    qsizetype at = 0;
    while ((at = html.indexOf(u'<', at)) >= 0) {
        if (QStringView(html).mid(at, 4) == u"<!--") {
            at = html.indexOf(QLatin1String("-->"), at + 4);
            if (at < 0)
                return;
            at += 3;
            continue;
        }
        const qsizetype end = tagEnd(html, at);
        if (end < 0)
            return;
        const QStringView tag = QStringView(html).mid(at + 1, end - at - 1);
        at = end + 1;
        const bool closing = tag.startsWith(u'/');
        const QStringView name = tagName(closing ? tag.mid(1) : tag);
        if (name.isEmpty())
            continue;
        if (closing) {
            for (qsizetype i = open.size() - 1; i >= 0; --i) {
                if (open.at(i).compare(name, Qt::CaseInsensitive) == 0) {
                    open.resize(i);
                    break;
                }
            }
            continue;
        }
        check(largestSpan(tag), maxHtmlSpan, tr("HTML 单元格的跨行或跨列数"));
        if (closesItsSibling(name)) {
            for (qsizetype i = open.size() - 1; i >= 0 && !isBoundary(open.at(i)); --i) {
                if (open.at(i).compare(name, Qt::CaseInsensitive) == 0) {
                    open.resize(i);
                    break;
                }
            }
        }
        if (tag.endsWith(u'/') || isVoidElement(name))
            continue;
        open.append(name);
        check(open.size(), maxHtmlDepth, tr("HTML 元素的嵌套层数"));
        if (is(name, "table")) {
            const auto tables =
                std::count_if(open.cbegin(), open.cend(), [](QStringView n) { return is(n, "table"); });
            check(tables, maxHtmlTableDepth, tr("HTML 表格的嵌套层数"));
        }
    }
}

} // namespace coagulation
