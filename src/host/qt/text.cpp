#include "host/text.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QStaticText>
#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>

#include "host/qt/painter.h"

namespace tq {

namespace {

constexpr size_t cache_limit = 20000;  // texts that are kept measured before the cache starts anew

struct FontHash {
    size_t operator()(const JFont& font) const {
        size_t flags = (font.italic ? 1u : 0u) + (font.bold ? 2u : 0u);
        return std::hash<std::string>()(font.family) ^ (std::hash<double>()(font.size) * 4 + flags);
    }
};

/// A text made ready for drawing.
struct Line {
    QStaticText text;
    Size size;
};

/// A font as the machine has it; `font.size` is in pixels of the screen here.
struct Face {
    QFont font;
    QFontMetricsF metrics;
    std::unordered_map<std::string, Line> lines;
};

/// The family itself when the machine has it, else one like it.
QString family_of(const std::string& family) {
    static const std::unordered_map<std::string, QStringList> likes = {
        {"Geneva", {"DejaVu Sans", "Liberation Sans", "Noto Sans"}},
        {"Courier", {"DejaVu Sans Mono", "Liberation Mono", "Noto Sans Mono"}},
    };
    QStringList wanted{QString::fromStdString(family)};
    if (auto found = likes.find(family); found != likes.end()) wanted += found->second;
    const QStringList there = QFontDatabase::families();
    for (const QString& name : wanted)
        if (there.contains(name)) return name;
    return QFontDatabase::systemFont(family == "Courier" ? QFontDatabase::FixedFont
                                                         : QFontDatabase::GeneralFont)
        .family();
}

Face& face_of(const JFont& asked, double ratio) {
    static std::unordered_map<JFont, Face, FontHash> faces;
    JFont font = asked;
    font.size = std::clamp(std::floor(asked.size * ratio + 0.5), 1., 1000.);
    if (auto found = faces.find(font); found != faces.end()) return found->second;
    QFont qt(family_of(font.family));
    qt.setPixelSize(static_cast<int>(font.size));
    qt.setItalic(font.italic);
    qt.setBold(font.bold);
    return faces.emplace(font, Face{qt, QFontMetricsF(qt), {}}).first->second;
}

const Line& line_of(Face& face, const std::string& key, const QString& text) {
    if (auto found = face.lines.find(key); found != face.lines.end()) return found->second;
    if (face.lines.size() >= cache_limit) face.lines.clear();
    Line line{QStaticText(text),
              {std::ceil(face.metrics.horizontalAdvance(text)), std::ceil(face.metrics.height())}};
    line.text.setTextFormat(Qt::PlainText);
    line.text.prepare({}, face.font);
    return face.lines.emplace(key, std::move(line)).first->second;
}

const Line& line_of(Face& face, const std::string& text) {
    if (auto found = face.lines.find(text); found != face.lines.end()) return found->second;
    return line_of(face, text, QString::fromStdString(text));
}

/// The text cut to a width in pixels of the screen.
const Line& cut_line(Face& face, const std::string& text, double width) {
    const std::string key = text + '\0' + std::to_string(static_cast<int>(width));
    if (auto found = face.lines.find(key); found != face.lines.end()) return found->second;
    return line_of(face, key, face.metrics.elidedText(QString::fromStdString(text), Qt::ElideRight, width));
}

/// Where something of a length starts between two ends: at the first, in the middle or at the last.
double justified(double start, double room, double length, int place) {
    return start + (room - length) * place / 2.;
}

}  // namespace

JFont jfont_create(std::string family, double size, bool italic, bool bold) {
    return {std::move(family), size, italic, bold};
}

Size jtextlayout_measure(const std::string& text, const JFont& font) {
    return line_of(face_of(font, 1), text).size;
}

void jtextlayout_draw(Graphics& g, const JTextLayout& layout) {
    if (layout.text.empty()) return;
    Graphics::Painter& p = g.painter();
    Face& face = face_of(layout.font, p.ratio);
    QRectF box = p.device(layout.box);
    const Line* line = &line_of(face, layout.text);
    if (layout.ellipsis && line->size.width > box.width()) line = &cut_line(face, layout.text, box.width());
    if (layout.ellipsis && line->size.width > std::ceil(box.width())) return;  // not even the ellipsis fits
    double x = justified(box.x(), box.width(), line->size.width, static_cast<int>(layout.horizontal));
    double y = justified(box.y(), box.height(), line->size.height, static_cast<int>(layout.vertical));
    p.qt.setFont(face.font);
    p.qt.setPen(to_qcolor(layout.color));
    p.qt.drawStaticText(QPointF(std::floor(x + 0.5), std::floor(y + 0.5)), line->text);
}

}  // namespace tq
