#include "tounicodemap_p.h"

#include <QList>
#include <QRawFont>

#include <algorithm>
#include <iterator>

namespace coagulation {

namespace {

// CJK Radicals Supplement and the unified ideograph each is equivalent to (Unicode's
// EquivalentUnifiedIdeograph.txt). Kangxi radicals need no table: NFKC maps them.
const char32_t supplementRadicals[][2] = {
    {0x2E81, 0x5382},  {0x2E82, 0x4E5B},  {0x2E83, 0x4E5A},  {0x2E84, 0x4E59},  {0x2E85, 0x4EBB},
    {0x2E86, 0x5182},  {0x2E87, 0x20628}, {0x2E88, 0x5200},  {0x2E89, 0x5202},  {0x2E8A, 0x535C},
    {0x2E8B, 0x353E},  {0x2E8C, 0x5C0F},  {0x2E8D, 0x5C0F},  {0x2E8E, 0x5140},  {0x2E8F, 0x5C23},
    {0x2E90, 0x5C22},  {0x2E91, 0x21BC2}, {0x2E92, 0x5DF3},  {0x2E93, 0x5E7A},  {0x2E94, 0x5F51},
    {0x2E95, 0x5F50},  {0x2E96, 0x5FC4},  {0x2E97, 0x5FC3},  {0x2E98, 0x624C},  {0x2E99, 0x6535},
    {0x2E9B, 0x65E1},  {0x2E9C, 0x65E5},  {0x2E9D, 0x6708},  {0x2E9E, 0x6B7A},  {0x2E9F, 0x6BCD},
    {0x2EA0, 0x6C11},  {0x2EA1, 0x6C35},  {0x2EA2, 0x6C3A},  {0x2EA3, 0x706C},  {0x2EA4, 0x722B},
    {0x2EA5, 0x722B},  {0x2EA6, 0x4E2C},  {0x2EA7, 0x725B},  {0x2EA8, 0x72AD},  {0x2EA9, 0x738B},
    {0x2EAA, 0x24D14}, {0x2EAB, 0x76EE},  {0x2EAC, 0x793A},  {0x2EAD, 0x793B},  {0x2EAE, 0x25AD7},
    {0x2EAF, 0x7CF9},  {0x2EB0, 0x7E9F},  {0x2EB1, 0x7F53},  {0x2EB2, 0x7F52},  {0x2EB3, 0x34C1},
    {0x2EB4, 0x5197},  {0x2EB5, 0x2626B}, {0x2EB6, 0x7F8A},  {0x2EB7, 0x2634C}, {0x2EB8, 0x2634B},
    {0x2EB9, 0x8002},  {0x2EBA, 0x8080},  {0x2EBB, 0x807F},  {0x2EBC, 0x8089},  {0x2EBD, 0x26951},
    {0x2EBE, 0x8279},  {0x2EBF, 0x8279},  {0x2EC0, 0x8279},  {0x2EC1, 0x864E},  {0x2EC2, 0x8864},
    {0x2EC3, 0x8980},  {0x2EC4, 0x897F},  {0x2EC5, 0x89C1},  {0x2EC6, 0x89D2},  {0x2EC7, 0x278B2},
    {0x2EC8, 0x8BA0},  {0x2EC9, 0x8D1D},  {0x2ECA, 0x27FB7}, {0x2ECB, 0x8F66},  {0x2ECC, 0x8FB6},
    {0x2ECD, 0x8FB6},  {0x2ECE, 0x8FB6},  {0x2ECF, 0x9091},  {0x2ED0, 0x9485},  {0x2ED1, 0x9577},
    {0x2ED2, 0x9578},  {0x2ED3, 0x957F},  {0x2ED4, 0x95E8},  {0x2ED5, 0x28E0F}, {0x2ED6, 0x961D},
    {0x2ED7, 0x96E8},  {0x2ED8, 0x9752},  {0x2ED9, 0x97E6},  {0x2EDA, 0x9875},  {0x2EDB, 0x98CE},
    {0x2EDC, 0x98DE},  {0x2EDD, 0x98DF},  {0x2EDE, 0x2967F}, {0x2EDF, 0x98E0},  {0x2EE0, 0x9963},
    {0x2EE1, 0x29810}, {0x2EE2, 0x9A6C},  {0x2EE3, 0x9AA8},  {0x2EE4, 0x9B3C},  {0x2EE5, 0x9C7C},
    {0x2EE6, 0x9E1F},  {0x2EE7, 0x5364},  {0x2EE8, 0x9EA6},  {0x2EE9, 0x9EC4},  {0x2EEA, 0x9EFE},
    {0x2EEB, 0x6589},  {0x2EEC, 0x9F50},  {0x2EED, 0x6B6F},  {0x2EEE, 0x9F7F},  {0x2EEF, 0x7ADC},
    {0x2EF0, 0x9F99},  {0x2EF1, 0x9F9C},  {0x2EF2, 0x4E80},  {0x2EF3, 0x9F9F}};

char32_t equivalentIdeograph(char32_t radical)
{
    if (radical >= 0x2F00 && radical <= 0x2FDF) {
        const QList<uint> folded =
            QString::fromUcs4(&radical, 1).normalized(QString::NormalizationForm_KC).toUcs4();
        return folded.size() == 1 && folded.first() != radical ? folded.first() : 0;
    }
    const auto* end = std::end(supplementRadicals);
    const auto* found = std::lower_bound(std::begin(supplementRadicals), end, radical,
                                         [](const char32_t* entry, char32_t c) { return entry[0] < c; });
    return found != end && (*found)[0] == radical ? (*found)[1] : 0;
}

bool sameGlyph(const QRawFont& font, char32_t a, char32_t b)
{
    const QList<quint32> first = font.glyphIndexesForString(QString::fromUcs4(&a, 1));
    const QList<quint32> second = font.glyphIndexesForString(QString::fromUcs4(&b, 1));
    return first.size() == 1 && first.first() != 0 && first == second;
}

// The tokens of a CMap that matter here: hex strings, array brackets and operators.
class CMapTokenizer
{
public:
    explicit CMapTokenizer(const QByteArray& data) : m_data(data) {}

    // The next token; empty at the end. A hex string comes back with its brackets.
    QByteArray next()
    {
        while (m_pos < m_data.size()) {
            const char c = m_data.at(m_pos);
            if (c == '%') {
                while (m_pos < m_data.size() && m_data.at(m_pos) != '\n' && m_data.at(m_pos) != '\r')
                    ++m_pos;
            } else if (QByteArrayView(" \t\r\n\f").contains(c)) {
                ++m_pos;
            } else {
                break;
            }
        }
        if (m_pos >= m_data.size())
            return QByteArray();
        const qsizetype start = m_pos;
        const char c = m_data.at(m_pos++);
        if (c == '<' && m_pos < m_data.size() && m_data.at(m_pos) != '<') {
            while (m_pos < m_data.size() && m_data.at(m_pos - 1) != '>')
                ++m_pos;
            return m_data.mid(start, m_pos - start);
        }
        if (c == '[' || c == ']')
            return m_data.mid(start, 1);
        while (m_pos < m_data.size() && !QByteArrayView(" \t\r\n\f[]<>/(%").contains(m_data.at(m_pos)))
            ++m_pos;
        return m_data.mid(start, m_pos - start);
    }

private:
    QByteArray m_data;
    qsizetype m_pos = 0;
};

bool isHex(const QByteArray& token)
{
    return token.size() >= 2 && token.startsWith('<') && token.endsWith('>');
}

QByteArray hexDigits(const QByteArray& token)
{
    QByteArray digits = token.mid(1, token.size() - 2);
    digits.replace(' ', QByteArray());
    return digits;
}

uint codeOf(const QByteArray& token, bool* ok)
{
    const QByteArray digits = hexDigits(token);
    *ok = !digits.isEmpty() && digits.size() <= 8;
    return *ok ? digits.toUInt(ok, 16) : 0;
}

// UTF-16BE in hex, as CMaps write destination strings.
QString textOf(const QByteArray& token)
{
    const QByteArray bytes = QByteArray::fromHex(hexDigits(token));
    QString text;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
        text.append(QChar(ushort((uchar(bytes.at(i)) << 8) | uchar(bytes.at(i + 1)))));
    return text;
}

QByteArray hexOf(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text) {
        bytes.append(char(c.unicode() >> 8));
        bytes.append(char(c.unicode() & 0xff));
    }
    return '<' + bytes.toHex().toUpper() + '>';
}

// The text of the next code in a range: the last UTF-16 unit counts up.
QString advanced(QString text, uint steps)
{
    if (!text.isEmpty())
        text[text.size() - 1] = QChar(ushort(text.at(text.size() - 1).unicode() + steps));
    return text;
}

} // namespace

bool ToUnicodeMap::parse(const QByteArray& cmap)
{
    m_texts.clear();
    CMapTokenizer tokens(cmap);
    enum { Outside, Chars, Ranges } section = Outside;
    for (QByteArray token = tokens.next(); !token.isEmpty(); token = tokens.next()) {
        if (token == "beginbfchar") {
            section = Chars;
        } else if (token == "beginbfrange") {
            section = Ranges;
        } else if (token == "endbfchar" || token == "endbfrange") {
            section = Outside;
        } else if (section == Chars && isHex(token)) {
            bool ok = false;
            const uint code = codeOf(token, &ok);
            const QByteArray destination = tokens.next();
            if (ok && isHex(destination))
                m_texts[code] = textOf(destination);
        } else if (section == Ranges && isHex(token)) {
            bool firstOk = false;
            bool lastOk = false;
            const uint first = codeOf(token, &firstOk);
            const uint last = codeOf(tokens.next(), &lastOk);
            // Ranges never cross a 256-code boundary, which also keeps a hostile one small.
            if (!firstOk || !lastOk || last < first || last - first > 0xff)
                return false;
            QByteArray destination = tokens.next();
            if (isHex(destination)) {
                const QString start = textOf(destination);
                for (uint code = first; code <= last; ++code)
                    m_texts[code] = advanced(start, code - first);
            } else if (destination == "[") {
                uint code = first;
                for (destination = tokens.next(); isHex(destination); destination = tokens.next()) {
                    if (code <= last)
                        m_texts[code++] = textOf(destination);
                }
            }
        }
    }
    return !m_texts.empty();
}

QByteArray ToUnicodeMap::toCMap() const
{
    QByteArray out = "/CIDInit /ProcSet findresource begin\n"
                     "12 dict begin\n"
                     "begincmap\n"
                     "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
                     "/CMapName /Adobe-Identity-UCS def\n"
                     "/CMapType 2 def\n"
                     "1 begincodespacerange\n"
                     "<0000> <FFFF>\n"
                     "endcodespacerange\n";
    // At most 100 entries a block, as CMap readers expect.
    auto entry = m_texts.cbegin();
    while (entry != m_texts.cend()) {
        const int count = int(qMin<size_t>(100, std::distance(entry, m_texts.cend())));
        out += QByteArray::number(count) + " beginbfchar\n";
        for (int i = 0; i < count; ++i, ++entry) {
            out += '<' + QByteArray::number(entry->first, 16).toUpper().rightJustified(4, '0') + "> " +
                   hexOf(entry->second) + '\n';
        }
        out += "endbfchar\n";
    }
    out += "endcmap\n"
           "CMapName currentdict /CMap defineresource pop\n"
           "end\n"
           "end\n";
    return out;
}

QString ToUnicodeMap::text(uint code) const
{
    const auto found = m_texts.find(code);
    return found == m_texts.end() ? QString() : found->second;
}

int ToUnicodeMap::replaceRadicals(const QRawFont* font)
{
    int changed = 0;
    for (auto& [code, text] : m_texts) {
        const QList<uint> points = text.toUcs4();
        if (points.size() != 1 || points.first() < 0x2E80 || points.first() > 0x2FDF)
            continue;
        const char32_t radical = points.first();
        const char32_t ideograph = equivalentIdeograph(radical);
        if (ideograph == 0 || (font && !sameGlyph(*font, radical, ideograph)))
            continue;
        text = QString::fromUcs4(&ideograph, 1);
        ++changed;
    }
    return changed;
}

int ToUnicodeMap::replaceLigatures()
{
    int changed = 0;
    for (auto& [code, text] : m_texts) {
        if (text.size() == 1 && text.at(0).unicode() >= 0xFB00 && text.at(0).unicode() <= 0xFB06) {
            text = text.normalized(QString::NormalizationForm_KC);
            ++changed;
        }
    }
    return changed;
}

} // namespace coagulation
