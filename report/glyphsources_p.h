#pragma once

#include <QHash>
#include <QRawFont>
#include <QString>

#include <bitset>

namespace coagulation {

// Where the glyphs of an installed font that its cmap does not reach come from. Shaping swaps
// glyphs by the font's substitutions (Noto Sans CJK draws digits in Latin text with other
// glyphs), and a PDF writer that maps glyphs back to text through the cmap leaves those without
// text. Each such glyph gets the lowest code point of a cmap glyph it substitutes.
class GlyphSources
{
public:
    explicit GlyphSources(const QRawFont& font);

    // The text of glyph `glyph` of `subset`, a subset of this font with glyphs renumbered,
    // found by its advance and outline among the substituted glyphs; empty when none or more
    // than one text fits.
    QString textOf(const QRawFont& subset, quint32 glyph) const;

    // Which pixels of a 96 x 96 grid a glyph inks (see inkOf).
    using Ink = std::bitset<96 * 96>;

private:
    const Ink& candidateInk(quint32 glyph) const;

    QRawFont m_font;
    QHash<quint32, char32_t> m_sources; // substituted glyph -> code point
    QList<quint32> m_candidates;        // its keys, and their advances
    QList<qreal> m_advances;
    mutable QHash<quint32, Ink> m_inks; // of the candidates drawn so far: every job asks again
};

} // namespace coagulation
