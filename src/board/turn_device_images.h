#pragma once

#include "forms/controls.h"
#include "platform/integer.h"

namespace tabulon {

/// Gives the pictures of dice and reels.
class TurnDeviceImages {
  public:
    /// Frames count from 1, four to a face.
    void SetDieFrame(Image& image, Integer frame) { image.Picture = Picture::Die(frame.Value()); }
    void SetReelNumber(Image& image, Integer number) { image.Picture = Picture::Reel(number.Value()); }
};

}  // namespace tabulon
