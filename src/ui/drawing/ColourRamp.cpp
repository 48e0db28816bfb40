#include "ui/drawing/ColourRampInternal.h"

#include <array>
#include <cstdint>

namespace {

struct ColourRamp {
    QRgb ink = 0, background = 0;
    bool valid = false;
    std::array<QRgb, 256> colours;
};

constexpr int kRamps = 256;  // kept; two pairs of colours that share a place take turns

// A channel times coverage / 255, rounded as the toolkit's blending rounds it.
int Share(int channel, int coverage) {
    const int product = channel * coverage;
    return (product + (product >> 8) + 0x80) >> 8;
}

int Blend(int foreground, int background, int coverage) {
    return Share(foreground, coverage) + Share(background, 255 - coverage);
}

void FillRamp(ColourRamp* ramp, QRgb ink, QRgb background) {
    ramp->ink = ink;
    ramp->background = background;
    ramp->valid = true;
    for (int coverage = 0; coverage < 256; ++coverage) {
        ramp->colours[coverage] = BlendColours(ink, background, coverage);
    }
    ramp->colours[255] = ink;
}

std::array<ColourRamp, kRamps> ramps;

}  // namespace

const QRgb* RampOf(QRgb ink, QRgb background) {
    const uint32_t mixed = (ink * 31 + background) * 0x9E3779B1U;
    ColourRamp& ramp = ramps[mixed >> 24];
    if (!ramp.valid || ramp.ink != ink || ramp.background != background) {
        FillRamp(&ramp, ink, background);
    }
    return ramp.colours.data();
}

QRgb BlendColours(QRgb ink, QRgb background, int coverage) {
    return qRgb(Blend(qRed(ink), qRed(background), coverage),
                Blend(qGreen(ink), qGreen(background), coverage),
                Blend(qBlue(ink), qBlue(background), coverage));
}
