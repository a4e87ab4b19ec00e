#pragma once

// What a template may hold. A template is a file from outside (mail, USB stick, network share)
// that is read inside the analyser's own process: these bounds keep loading, laying out and
// printing it linear in its size and within a few hundred megabytes, whatever the file says.

#include <QCoreApplication>
#include <QString>

namespace coagulation {

class TemplateLimits
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::TemplateLimits)
public:
    static constexpr int maxItems = 10000;                          // items in one template or item list
    static constexpr qint64 maxCellsPerTable = 100000;              // rows x columns, all blocks together
    static constexpr qint64 maxCellsPerTemplate = 200000;           // the same over every table
    static constexpr int maxColumns = 1000;                         // columns and column specs of one grid
    static constexpr int maxBlocks = 100;                           // blocks of a multi-column table
    static constexpr qint64 maxImagePixels = 4096 * 4096;           // one picture
    static constexpr qint64 maxTemplatePixels = 2 * maxImagePixels; // every picture together
    static constexpr int maxTextLength = 65536;                     // characters of one text or cell
    static constexpr qint64 maxTemplateCharacters = 1 << 20;        // characters of every text and cell
    static constexpr int maxHtmlDepth = 64;                         // elements open inside one another
    static constexpr int maxHtmlTableDepth = 4;                     // tables inside tables
    static constexpr int maxHtmlSpan = 100;                         // colspan and rowspan of an HTML cell
    static constexpr int maxGradientStops = 256;                    // stops of a gradient brush

    // While a scope is open, the loads inside it draw on one template's budget; without one
    // only the bounds per item apply (an item read on its own).
    class Scope
    {
    public:
        Scope();
        ~Scope();
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        Scope* m_outer;
        qint64 m_cells = 0;
        qint64 m_pixels = 0;
        qint64 m_characters = 0;
        friend class TemplateLimits;
    };

    // Each throws the message that names the bound when the amount goes beyond it.
    static void checkCells(qint64 cells);  // one table
    static void chargeCells(qint64 cells); // one table, counted towards the template
    static void checkColumns(qint64 columns);
    static void checkBlocks(qint64 blocks);
    static void checkItems(qint64 items);
    static void checkPixels(qint64 pixels);
    static void checkText(qint64 length);
    static void checkHtml(const QString& html);
    static void checkGradientStops(qint64 stops);

    // The message for a bound, as the loader reports it.
    static QString exceeded(const QString& what, qint64 limit);
};

} // namespace coagulation
