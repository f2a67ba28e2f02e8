#include "presentation/modRepositioner.h"

namespace tabulon {

namespace {

constexpr int SmallFontsDensity = 96;

void SetIfPositive(float& property, float value) {
    if (value > 0) property = value;
}

}  // namespace

bool IsSmallFonts(const Screen& screen) { return screen.LogicalPixelsPerInch() == SmallFontsDensity; }

void PositionForm(Globals& g, Form& form, int width, int height, int top) {
    Procedure(g.gErrHandler, "modRepositioner:PositionForm", [&] {
        form.Width = g.TheScreen.TwipsPerPixelX() * static_cast<float>(width);
        form.Height = g.TheScreen.TwipsPerPixelY() * static_cast<float>(height);
        form.Top = g.TheScreen.TwipsPerPixelY() * static_cast<float>(top);
    });
}

void PositionObject(Globals& g, Control& object, int fontSize, float height, float left, float top,
                    float width) {
    Procedure(g.gErrHandler, "modRepositioner:PositionObject", [&] {
        if (fontSize >= 1) {
            Font* font = FontOf(object);
            if (!font) throw Failure(FailureNumber::NotSupported);
            font->Size = fontSize;
        }
        SetIfPositive(object.Height, height);
        SetIfPositive(object.Left, left);
        SetIfPositive(object.Top, top);
        SetIfPositive(object.Width, width);
    });
}

void PositionShape(Globals& g, Shape& shape, const Control& object) {
    Procedure(g.gErrHandler, "modRepositioner:PositionShape", [&] {
        const float x = g.TheScreen.TwipsPerPixelX();
        const float y = g.TheScreen.TwipsPerPixelY();
        shape.Height = object.Height + 7 * y;
        shape.Left = object.Left - 3 * x;
        shape.Top = object.Top - 3 * y;
        shape.Width = object.Width + 7 * x;
    });
}

void PositionObjects(Globals& g, std::initializer_list<Placement> rows) {
    const float x = g.TheScreen.TwipsPerPixelX();
    const float y = g.TheScreen.TwipsPerPixelY();
    for (const Placement& row : rows) {
        PositionObject(g, *row.Object, g.SmallFonts ? row.SmallFont : row.LargeFont,
                       static_cast<float>(row.Height) * y, static_cast<float>(row.Left) * x,
                       static_cast<float>(row.Top) * y, static_cast<float>(row.Width) * x);
    }
}

}  // namespace tabulon
