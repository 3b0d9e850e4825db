#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QString>

// How the phone looks: every colour, size and font of the screen stands here. Sizes are logical pixels.
namespace Look {

inline constexpr int margin = 10;
inline constexpr int titleHeight = 34;
inline constexpr int softKeyHeight = 32;
inline constexpr int rowPadding = 6;
inline constexpr int lineGap = 1;
inline constexpr int groupGap = 8;
inline constexpr int radioSize = 16;
inline constexpr int scrollMarkWidth = 3;
inline constexpr int progressHeight = 8;

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
