// The drawing calls of ui/Drawing.h carried out at once by the toolkit, one after the
// other, with nothing kept, merged or left out. What the recorded drawing must equal.
#pragma once

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include "ui/Drawing.h"
#include "ui/FontTable.h"

struct PlainPicture {
    PlainPicture(int width, int height) : image(width, height, QImage::Format_RGB32) {
        image.fill(Qt::white);
    }

    void Resize(int width, int height) {
        PlainPicture other(width, height);
        QPainter(&other.image).drawImage(0, 0, image);
        image = other.image;
    }

    void Box(int x, int y, int width, int height, uint32_t colour, bool inverts = false) {
        QPainter painter(&image);
        if (inverts) painter.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
        painter.fillRect(QRect(x, y, width, height), ColourOf(colour));
    }

    void Cells(int x, int y, const CellRun* runs, int count, const CellBoxes& boxes) {
        for (int i = 0; i < count; ++i) {
            for (int cell = 0; cell < runs[i].count; ++cell, x += boxes.pitch) {
                const CellLook& look = runs[i].look;
                if (look.fillBox) Box(x, y, boxes.width, boxes.height, look.background);
                const QFont* font = NumberedFont(look.font);
                const char16_t c = runs[i].text[cell];
                if (c && font) QPainter(&image).drawImage(x, y, GlyphBox(*font, c, look));
            }
        }
    }

    void Move(int top, int height, int target, uint32_t background) {
        const QImage before = image;
        image.fill(ColourOf(background));
        const QRect strip = QRect(0, top, image.width(), height) & image.rect();
        if (height <= 0 || strip.isEmpty()) return;
        QPainter(&image).drawImage(QPoint(0, target + strip.top() - top), before, strip);
    }

    // Fails with the first pixel that differs.
    void ExpectEqual(const QImage& found) const {
        if (found == image) return;
        ASSERT_EQ(found.size(), image.size());
        for (int y = 0; y < found.height(); ++y) {
            for (int x = 0; x < found.width(); ++x) {
                ASSERT_EQ(found.pixel(x, y), image.pixel(x, y)) << "at " << x << ", " << y;
            }
        }
    }

    QImage image;

  private:
    static QColor ColourOf(uint32_t bgr) {
        return QColor(bgr & 0xFF, bgr >> 8 & 0xFF, bgr >> 16 & 0xFF);
    }

    // A glyph in its box, drawn away from x 0, where the toolkit shifts it by a trace.
    static QImage GlyphBox(const QFont& font, char16_t c, const CellLook& look) {
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
};
