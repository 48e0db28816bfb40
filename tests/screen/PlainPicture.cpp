#include "tests/screen/PlainPicture.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QPainter>

#include "ui/FontTable.h"

namespace {

QColor ColourOf(uint32_t bgr) {
    return QColor(bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF);
}

// A glyph in its box, drawn away from x 0, where the toolkit shifts it by a trace.
QImage GlyphBox(const QFont& font, char16_t c, const CellLook& look) {
    constexpr int kLeft = 8;
    const QFontMetrics metrics(font);
    const QSize size(metrics.horizontalAdvance(QChar(c)), metrics.height());
    QImage box(kLeft + size.width(), size.height(), QImage::Format_RGB32);
    box.fill(ColourOf(look.background));
    QPainter painter(&box);
    painter.setFont(font);
    painter.setPen(ColourOf(look.foreground));
    painter.drawText(kLeft, metrics.ascent(), QString(QChar(c)));
    painter.end();
    return box.copy(QRect(QPoint(kLeft, 0), size));
}

void PaintCell(QPainter* painter, const QPoint& at, char16_t c, const CellLook& look,
               const CellBoxes& boxes) {
    if (look.fillBox) {
        painter->fillRect(QRect(at, QSize(boxes.width, boxes.height)), ColourOf(look.background));
    }
    const QFont* font = NumberedFont(look.font);
    if (c && font) painter->drawImage(at, GlyphBox(*font, c, look));
}

}  // namespace

PlainPicture::PlainPicture(int width, int height) : image(width, height, QImage::Format_RGB32) {
    image.fill(Qt::white);
}

void PlainPicture::Resize(int width, int height) {
    PlainPicture other(width, height);
    QPainter(&other.image).drawImage(0, 0, image);
    image = other.image;
}

void PlainPicture::Box(int x, int y, int width, int height, uint32_t colour) {
    if (width > 0 && height > 0) QPainter(&image).fillRect(x, y, width, height, ColourOf(colour));
}

void PlainPicture::XorBox(int x, int y, int width, int height, uint32_t colour) {
    if (width <= 0 || height <= 0) return;
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    painter.fillRect(x, y, width, height, ColourOf(colour));
}

void PlainPicture::Cells(int x, int y, const CellRun* runs, int count, const CellBoxes& boxes) {
    QPainter painter(&image);
    for (int i = 0; i < count; ++i) {
        for (int cell = 0; cell < runs[i].count; ++cell, x += boxes.pitch) {
            PaintCell(&painter, QPoint(x, y), runs[i].text[cell], runs[i].look, boxes);
        }
    }
}

void PlainPicture::Move(int top, int height, int target, uint32_t background) {
    const QImage before = image;
    image.fill(ColourOf(background));
    const QRect strip = QRect(0, top, image.width(), height) & image.rect();
    if (height <= 0 || strip.isEmpty()) return;
    QPainter(&image).drawImage(QPoint(0, target + strip.top() - top), before, strip);
}

void ExpectSamePicture(const QImage& found, const QImage& expected, const QString& what) {
    if (found == expected) return;
    ASSERT_EQ(found.size(), expected.size()) << what.toStdString();
    for (int y = 0; y < found.height(); ++y) {
        for (int x = 0; x < found.width(); ++x) {
            ASSERT_EQ(QColor(found.pixel(x, y)).name().toStdString(),
                      QColor(expected.pixel(x, y)).name().toStdString())
                << "at " << x << ", " << y << ": " << what.toStdString();
        }
    }
}
