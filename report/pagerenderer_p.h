#pragma once

class QPainter;

namespace coagulation {

class Report;

// Renders a report's page onto a printer's painter as vectors, embedded widgets included.
class PageRenderer
{
public:
    static void render(Report* report, QPainter* painter);
};

} // namespace coagulation
