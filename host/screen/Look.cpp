#include "Look.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace {

// Longer than any line that a marquee could show while somebody still watches.
constexpr int maxLineLength = 400;

constexpr int sideOfUnit = 240; // of a smaller screen, too: nobody reads smaller texts

int theShorterSide = sideOfUnit;
bool theScreenIsLow = false; // for texts above a pop-up's content

struct FontSize
{
    int pixels;
    bool bold;
};

constexpr FontSize fontSize(Look::Text text)
{
    switch (text) {
    case Look::Text::Title:
        return {16, true};
    case Look::Text::Row:
        return {15, false};
    case Look::Text::Value:
        return {12, false};
    case Look::Text::Heading:
        return {12, true};
    case Look::Text::Body:
        return {14, false};
    case Look::Text::Caption:
        return {15, true};
    case Look::Text::SoftKey:
        return {13, true};
    }
    return {15, false};
}

} // namespace

bool Look::setScreen(const QSize& screen)
{
    theScreenIsLow = screen.height() < sideOfUnit;
    const int side = std::max(sideOfUnit, std::min(screen.width(), screen.height()));
    return std::exchange(theShorterSide, side) != side;
}

int Look::shorterSide()
{
    return theShorterSide;
}

int Look::scaled(int pixels)
{
    return (2 * pixels * theShorterSide + sideOfUnit) / (2 * sideOfUnit); // rounded
}

QFont Look::font(Text text)
{
    QFont font = QGuiApplication::font();
    const FontSize size = fontSize(text);
    font.setPixelSize(scaled(size.pixels));
    font.setBold(size.bold);
    return font;
}

int Look::captionLines()
{
    return theScreenIsLow ? 1 : 2;
}

int Look::instructionLines()
{
    return theScreenIsLow ? 1 : 3;
}

QPalette Look::palette()
{
    QPalette palette(bar, page);
    palette.setColor(QPalette::Window, page);
    palette.setColor(QPalette::WindowText, text);
    palette.setColor(QPalette::Base, page);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, highlightText);
    return palette;
}

QString Look::shortened(const QString& text, qsizetype most)
{
    if (text.size() <= most)
        return text;
    const bool cutsPair = text[most - 1].isHighSurrogate();
    return text.left(cutsPair ? most - 1 : most) + QChar(0x2026);
}

QString Look::oneLine(const QString& text)
{
    QString line = shortened(text, maxLineLength);
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control || character == QChar::LineSeparator ||
            character == QChar::ParagraphSeparator)
            character = QLatin1Char(' ');
    }
    return line;
}
