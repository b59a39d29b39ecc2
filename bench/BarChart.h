#pragma once

// Benchmark results as an SVG bar chart, written with the library's own XML writer: one panel per
// measure, one group of bars per tool, one bar per series.

#include <QxXmlLib16/foundation/Functions.h>
#include <QxXmlLib16/foundation/TextStream.h>
#include <QxXmlLib16/xml/XmlTextWriter.h>

#include <algorithm>
#include <string>
#include <vector>

namespace bench {

struct ChartRow {
    std::wstring label;
    std::vector<double> values; // one per series of the panel; negative: not measured
};

struct ChartPanel {
    std::wstring title;
    std::vector<std::wstring> series;
    std::vector<ChartRow> rows;
    std::wstring format; // printf format of a bar's figure, e.g. L"%.2f x"
    double reference;    // drawn as a dashed line where positive
    std::wstring referenceLabel;
};

namespace chart {

constexpr int kWidth = 760, kLabelWidth = 210, kBarWidth = 440, kBarHeight = 14, kGap = 10;
const wchar_t* const kColours[] = {L"#3b6ea8", L"#8fb4dc", L"#d08a3c", L"#6a9a4f"};

inline std::wstring Number(double value) {
    return QxXmlLib16::FormatString(L"%.1f", value);
}

class CSvg {
public:
    explicit CSvg(QxXmlLib16::CXmlTextWriter& writer)
        : m_writer(writer) {}
    void Start(const wchar_t* name) { m_writer.WriteStartElement(name, L"http://www.w3.org/2000/svg"); }
    void End() { m_writer.WriteEndElement(); }
    void Attribute(const wchar_t* name, const std::wstring& value) {
        m_writer.WriteAttributeString(name, L"", value, QxXmlLib16::itString);
    }
    void Attribute(const wchar_t* name, double value) { Attribute(name, Number(value)); }
    void Text(double x, double y, const std::wstring& text, const wchar_t* anchor = L"start",
              const wchar_t* weight = L"normal") {
        Start(L"text");
        Attribute(L"x", x);
        Attribute(L"y", y);
        Attribute(L"text-anchor", anchor);
        Attribute(L"font-weight", weight);
        m_writer.WriteString(text, QxXmlLib16::itString, false);
        End();
    }
    void Rect(double x, double y, double width, double height, const wchar_t* fill) {
        Start(L"rect");
        Attribute(L"x", x);
        Attribute(L"y", y);
        Attribute(L"width", width);
        Attribute(L"height", height);
        Attribute(L"fill", fill);
        End();
    }

private:
    QxXmlLib16::CXmlTextWriter& m_writer;
};

inline int PanelHeight(const ChartPanel& panel) {
    return (panel.series.size() > 1 ? 62 : 44) +
           static_cast<int>(panel.rows.size() * (panel.series.size() * kBarHeight + kGap));
}

inline void Panel(CSvg& svg, const ChartPanel& panel, int top) {
    svg.Text(10, top + 16, panel.title, L"start", L"bold");
    const bool legend = panel.series.size() > 1;
    double legendX = kLabelWidth;
    for (size_t s = 0; legend && s < panel.series.size(); ++s) {
        svg.Rect(legendX, top + 24, 12, 12, kColours[s]);
        svg.Text(legendX + 16, top + 34, panel.series[s]);
        legendX += 24 + 7.5 * panel.series[s].size();
    }
    double largest = panel.reference;
    for (const ChartRow& row : panel.rows)
        for (double value : row.values)
            largest = std::max(largest, value);
    const double scale = largest > 0 ? kBarWidth / largest : 0;
    const int barsTop = top + (legend ? 46 : 28);
    double y = barsTop;
    for (const ChartRow& row : panel.rows) {
        const double groupHeight = panel.series.size() * kBarHeight;
        svg.Text(kLabelWidth - 8, y + groupHeight / 2 + 4, row.label, L"end");
        for (size_t s = 0; s < row.values.size(); ++s, y += kBarHeight) {
            if (row.values[s] < 0) continue;
            svg.Rect(kLabelWidth, y + 1, row.values[s] * scale, kBarHeight - 2, kColours[s]);
            svg.Text(kLabelWidth + row.values[s] * scale + 4, y + kBarHeight - 3,
                     QxXmlLib16::FormatString(panel.format.c_str(), row.values[s]));
        }
        y += kGap;
    }
    if (panel.reference > 0) {
        const double x = kLabelWidth + panel.reference * scale;
        svg.Start(L"line");
        svg.Attribute(L"x1", x);
        svg.Attribute(L"x2", x);
        svg.Attribute(L"y1", barsTop - 4);
        svg.Attribute(L"y2", y - kGap + 4);
        svg.Attribute(L"stroke", L"#555");
        svg.Attribute(L"stroke-dasharray", L"4 3");
        svg.End();
        svg.Text(x + 4, y + 4, panel.referenceLabel);
    }
}

} // namespace chart

// Writes the panels one below the other into fileName, under a title.
inline void WriteBarChart(const wchar_t* fileName, const std::wstring& title,
                          const std::vector<ChartPanel>& panels) {
    int height = 36;
    for (const ChartPanel& panel : panels)
        height += chart::PanelHeight(panel) + 12;
    QxXmlLib16::CFileTextStream stream(fileName, QxXmlLib16::encUTF8);
    stream.Open();
    QxXmlLib16::CXmlTextWriter writer(stream);
    writer.WriteStartDocument();
    writer.SetDefaultNamespace(L"http://www.w3.org/2000/svg");
    chart::CSvg svg(writer);
    svg.Start(L"svg");
    svg.Attribute(L"width", chart::kWidth);
    svg.Attribute(L"height", height);
    svg.Attribute(L"viewBox", QxXmlLib16::FormatString(L"0 0 %d %d", chart::kWidth, height));
    svg.Attribute(L"font-family", L"sans-serif");
    svg.Attribute(L"font-size", L"12");
    svg.Rect(0, 0, chart::kWidth, height, L"white");
    svg.Text(10, 22, title, L"start", L"bold");
    int top = 36;
    for (const ChartPanel& panel : panels) {
        chart::Panel(svg, panel, top);
        top += chart::PanelHeight(panel) + 12;
    }
    svg.End();
    writer.Close();
    stream.Close();
}

} // namespace bench
