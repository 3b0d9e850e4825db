#include "Look.h"

#include "PhoneScreen.h"

#include <QGuiApplication>

namespace {

// Longer than any line that a marquee could show while somebody still watches.
constexpr int maxLineLength = 400;

bool isLow()
{
    constexpr int lowScreen = 240;
    return PhoneScreen::instance()->height() < lowScreen;
}

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

QFont Look::font(Text text)
{
    QFont font = QGuiApplication::font();
    const FontSize size = fontSize(text);
    font.setPixelSize(size.pixels);
    font.setBold(size.bold);
    return font;
}

int Look::captionLines()
{
    return isLow() ? 1 : 2;
}

int Look::instructionLines()
{
    return isLow() ? 1 : 3;
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
