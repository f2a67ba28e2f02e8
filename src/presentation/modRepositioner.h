#pragma once

#include "diagnostics/globals.h"

namespace tabulon {

/// True exactly at 96 dots per inch; any other density counts as large fonts.
bool IsSmallFonts(const Screen& screen);

/// Sizes a form in pixels and sets its top.
void PositionForm(Globals& g, Form& form, int width, int height, int top);

/// Places a control in twips and sets its font size in points. What is not above 0 stays as it is. Fails for
/// a font size on a control without text, and then places nothing.
void PositionObject(Globals& g, Control& object, int fontSize, float height, float left, float top,
                    float width);

/// Of the frames that PositionShape puts around controls: a quiet one, so that the focus ring is the loudest.
inline constexpr Colour FrameColour{143, 211, 200};

/// Puts a frame 3 pixels out on the left and top, 4 on the right and bottom of a control.
void PositionShape(Globals& g, Shape& shape, const Control& object);

/// One control's place in pixels and its font size at both densities; 0 leaves a value as it is.
struct Placement {
    Control* Object;
    int Left, Top, Width, Height;
    int SmallFont = 0;
    int LargeFont = 0;
};

/// PositionObject for each row, in twips of the density in use.
void PositionObjects(Globals& g, std::initializer_list<Placement> rows);

}  // namespace tabulon
