#pragma once

#include <QByteArray>
#include <QString>

#include <map>

class QRawFont;

namespace coagulation {

// The ToUnicode CMap of one PDF font: which text each character code of the font stands for.
// Qt builds it by looking up each glyph in the font's cmap and keeping the lowest code point, so a
// glyph a font shares between a CJK radical and the ideograph it stands for reads as the radical.
class ToUnicodeMap
{
public:
    // False when the stream holds no mapping at all.
    bool parse(const QByteArray& cmap);
    QByteArray toCMap() const;

    QString text(uint code) const;
    void setText(uint code, const QString& text) { m_texts[code] = text; }

    // Gives back the ideograph where a radical stands for it: where `font` draws both with one
    // glyph, or for every radical when the font is unknown (null). Returns the entries changed.
    int replaceRadicals(const QRawFont* font);
    // Spells out Latin ligatures ("ﬁ" as "fi"): shaping draws "fi" with the glyph the font also maps
    // U+FB01 to, and a search for "file" must find it. Returns the entries changed.
    int replaceLigatures();

private:
    std::map<uint, QString> m_texts;
};

} // namespace coagulation
