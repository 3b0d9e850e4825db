#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QSize>
#include <QString>

// How the phone looks: every colour, size and font of the screen stands here. Sizes are logical pixels, and multiples of
// one unit, which is 1 where the screen's shorter side is 240, and grows with it.
namespace Look {

// Takes the unit of a screen of this size. Whether it is another one than before: then every font and size is.
bool setScreen(const QSize& screen);

// What the unit follows: of a screen that is smaller than 240, that.
int shorterSide();

// Whole pixels.
int scaled(int pixels);

// So many pixels where the unit is 1.
class Length
{
public:
    constexpr explicit Length(int pixels) : mPixels(pixels) {}
    operator int() const { return scaled(mPixels); }

private:
    int mPixels;
};

inline constexpr Length margin{10};
inline constexpr Length titleHeight{34};
inline constexpr Length softKeyHeight{32};
inline constexpr Length rowPadding{6};
inline constexpr Length lineGap{1};
inline constexpr Length groupGap{8};
inline constexpr Length radioSize{16};
inline constexpr Length scrollMarkWidth{3};
inline constexpr Length progressHeight{8};

// Of the whole screen, what a pop-up may cover at the most, in percent, so that the page stays in sight.
inline constexpr int popupShare = 88;

inline constexpr QColor page{0xf6, 0xf8, 0xfa};
inline constexpr QColor text{0x1a, 0x21, 0x29};
inline constexpr QColor quiet{0x5a, 0x68, 0x76};
inline constexpr QColor heading{0x17, 0x5d, 0x8d};
inline constexpr QColor greyed{0x9b, 0xa5, 0xae};
inline constexpr QColor line{0xdd, 0xe3, 0xe8};
inline constexpr QColor bar{0x16, 0x32, 0x47};
inline constexpr QColor barPressed{0x2b, 0x55, 0x75};
inline constexpr QColor barText{0xff, 0xff, 0xff};
inline constexpr QColor highlight{0x17, 0x6b, 0xa8};
inline constexpr QColor highlightText{0xff, 0xff, 0xff};
inline constexpr QColor highlightQuiet{0xd3, 0xe6, 0xf5};
inline constexpr QColor highlightGreyed{0xc3, 0xd0, 0xda};
inline constexpr QColor highlightGreyedText{0x6c, 0x7b, 0x88};
inline constexpr QColor dim{0x0b, 0x18, 0x22, 0x8c};

enum class Text { Title, Row, Value, Heading, Body, Caption, SoftKey };
QFont font(Text text);

// How many lines the texts above a pop-up's content may take: few on a low screen, so that the content has
// room.
int captionLines();
int instructionLines();

QPalette palette();

// `text`, or its first `most` characters with an ellipsis for the rest.
QString shortened(const QString& text, qsizetype most);

// `text` on one line, its line breaks and other control characters turned into blanks, and shortened to what somebody
// watches a marquee for, so that measuring it stays cheap.
QString oneLine(const QString& text);

} // namespace Look
