#pragma once

#include "diagnostics/globals.h"

namespace tabulon {

/// For forms whose design is the same in pixels at both densities.
class DesignSize {
  public:
    explicit DesignSize(const Globals& g)
        : FontSize(g.SmallFonts ? 11 : 9), m_twips(g.TheScreen.TwipsPerPixelX()) {}

    void Size(Form& form, int width, int height) const {
        form.Width = Twips(width);
        form.Height = Twips(height);
    }
    void Place(Control& control, int left, int top, int width, int height) const {
        control.Move(Twips(left), Twips(top), Twips(width), Twips(height));
        FontOf(control)->Size = FontSize;
    }

    const int FontSize;

  private:
    float Twips(int pixels) const { return static_cast<float>(pixels) * m_twips; }

    float m_twips;
};

}  // namespace tabulon
