#include "glyphsources_p.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QSet>

#include <hb-ot.h>

#include <memory>
#include <vector>

namespace coagulation {

namespace {

constexpr qreal pixelSize = 64;

hb_blob_t* referenceTable(hb_face_t*, hb_tag_t tag, void* font)
{
    const char name[5] = {char(tag >> 24), char(tag >> 16), char(tag >> 8), char(tag), 0};
    auto* data = new QByteArray(static_cast<const QRawFont*>(font)->fontTable(name));
    if (data->isEmpty()) {
        delete data;
        return nullptr;
    }
    return hb_blob_create(data->constData(), uint(data->size()), HB_MEMORY_MODE_READONLY, data,
                          [](void* bytes) { delete static_cast<QByteArray*>(bytes); });
}

struct HbDeleter
{
    void operator()(hb_face_t* face) const { hb_face_destroy(face); }
    void operator()(hb_font_t* font) const { hb_font_destroy(font); }
    void operator()(hb_set_t* set) const { hb_set_destroy(set); }
};
template <typename T> using HbPointer = std::unique_ptr<T, HbDeleter>;

// The pixels the glyph inks when drawn at the origin of a grid one and a half em wide.
GlyphSources::Ink inkOf(const QRawFont& font, quint32 glyph)
{
    constexpr int side = int(pixelSize * 1.5);
    static_assert(side * side == int(GlyphSources::Ink().size()), "the ink grid holds the glyph's image");
    QImage image(side, side, QImage::Format_Alpha8);
    image.fill(0);
    {
        QPainter painter(&image);
        painter.translate(pixelSize * 0.25, pixelSize * 1.2);
        painter.fillPath(font.pathForGlyph(glyph), Qt::black);
    }
    GlyphSources::Ink ink;
    for (int y = 0; y < side; ++y) {
        const uchar* line = image.constScanLine(y);
        for (int x = 0; x < side; ++x)
            ink[size_t(y * side + x)] = line[x] > 127;
    }
    return ink;
}

// The share of inked pixels that only one of the two glyphs inks: 0 for the same outline.
qreal difference(const GlyphSources::Ink& a, const GlyphSources::Ink& b)
{
    const size_t either = (a | b).count();
    return either == 0 ? 0 : qreal((a ^ b).count()) / qreal(either);
}

// What `lookup` turns `glyph` into on its own: its alternates, or the one glyph that replaces it
// (also where the font writes that as a sequence of one).
std::vector<quint32> substitutesOf(hb_face_t* face, unsigned lookup, quint32 glyph)
{
    std::vector<quint32> found;
    hb_codepoint_t alternates[32];
    unsigned count = 32;
    for (unsigned offset = 0; count == 32; offset += count) {
        hb_ot_layout_lookup_get_glyph_alternates(face, lookup, glyph, offset, &count, alternates);
        found.insert(found.end(), alternates, alternates + count);
    }
    if (!found.empty())
        return found;
    HbPointer<hb_set_t> closure(hb_set_create());
    hb_set_add(closure.get(), glyph);
    hb_ot_layout_lookup_substitute_closure(face, lookup, closure.get());
    hb_set_del(closure.get(), glyph);
    hb_codepoint_t only = HB_SET_VALUE_INVALID;
    if (hb_set_get_population(closure.get()) == 1 && hb_set_next(closure.get(), &only))
        found.push_back(only);
    return found;
}

} // namespace

GlyphSources::GlyphSources(const QRawFont& font) : m_font(font)
{
    m_font.setPixelSize(pixelSize);
    HbPointer<hb_face_t> face(hb_face_create_for_tables(referenceTable, new QRawFont(m_font),
                                                        [](void* f) { delete static_cast<QRawFont*>(f); }));
    HbPointer<hb_font_t> hbFont(hb_font_create(face.get()));

    // The cmap backwards, keeping the lowest code point of each glyph.
    QHash<quint32, char32_t> sources;
    std::vector<quint32> pending;
    HbPointer<hb_set_t> unicodes(hb_set_create());
    hb_face_collect_unicodes(face.get(), unicodes.get());
    for (hb_codepoint_t c = HB_SET_VALUE_INVALID; hb_set_next(unicodes.get(), &c);) {
        hb_codepoint_t glyph = 0;
        if (hb_font_get_nominal_glyph(hbFont.get(), c, &glyph) && glyph != 0 && !sources.contains(glyph)) {
            sources.insert(glyph, c);
            pending.push_back(glyph);
        }
    }

    // Follows one-to-one and alternate substitutions, also of glyphs substituted before.
    const unsigned lookupCount = hb_ot_layout_table_get_lookup_count(face.get(), HB_OT_TAG_GSUB);
    std::vector<HbPointer<hb_set_t>> inputs;
    for (unsigned lookup = 0; lookup < lookupCount; ++lookup) {
        inputs.emplace_back(hb_set_create());
        hb_ot_layout_lookup_collect_glyphs(face.get(), HB_OT_TAG_GSUB, lookup, nullptr, inputs.back().get(),
                                           nullptr, nullptr);
    }
    // In order of code points, so that a glyph reached from several gets the lowest.
    for (size_t next = 0; next < pending.size(); ++next) {
        const quint32 glyph = pending[next];
        for (unsigned lookup = 0; lookup < lookupCount; ++lookup) {
            if (!hb_set_has(inputs[lookup].get(), glyph))
                continue;
            for (const quint32 substitute : substitutesOf(face.get(), lookup, glyph)) {
                if (!sources.contains(substitute)) {
                    sources.insert(substitute, sources.value(glyph));
                    m_sources.insert(substitute, sources.value(glyph));
                    pending.push_back(substitute);
                }
            }
        }
    }
    m_candidates = m_sources.keys();
    // From hmtx: asking the rasterizer for tens of thousands of glyphs takes a second.
    const qreal scale = pixelSize / hb_face_get_upem(face.get());
    for (const quint32 glyph : std::as_const(m_candidates))
        m_advances.append(hb_font_get_glyph_h_advance(hbFont.get(), glyph) * scale);
}

const GlyphSources::Ink& GlyphSources::candidateInk(quint32 glyph) const
{
    auto found = m_inks.find(glyph);
    if (found == m_inks.end())
        found = m_inks.insert(glyph, inkOf(m_font, glyph));
    return *found;
}

QString GlyphSources::textOf(const QRawFont& subset, quint32 glyph) const
{
    if (m_sources.isEmpty())
        return QString();
    QRawFont scaled = subset;
    scaled.setPixelSize(pixelSize);
    const QList<QPointF> advance = scaled.advancesForGlyphIndexes(QList<quint32>{glyph});
    if (advance.isEmpty())
        return QString();
    const Ink ink = inkOf(scaled, glyph);

    // The advance narrows the substitutes to a handful, the outline picks among them.
    QSet<char32_t> fits;
    for (qsizetype i = 0; i < m_candidates.size(); ++i) {
        if (qAbs(m_advances.at(i) - advance.first().x()) <= 0.25 &&
            difference(ink, candidateInk(m_candidates.at(i))) <= 0.05)
            fits.insert(m_sources.value(m_candidates.at(i)));
    }
    if (fits.size() != 1)
        return QString();
    const char32_t source = *fits.constBegin();
    return QString::fromUcs4(&source, 1);
}

} // namespace coagulation
