#pragma once

#include "board/main_form.h"
#include "packages/modInstallUninstall.h"

namespace tabulon {

/// The board of the main form: the picture, the players' places on it, and the overview with its marker.
class BoardView {
  public:
    BoardView(Globals& g, MainForm& form, modInstallUninstall& packages)
        : m_g(g), m_form(form), m_packages(packages) {}

    /// Loads the game's board picture and scales the spaces to it; once for each load of the spaces. After a
    /// failure picture and factors are what they were.
    void LoadGameBoard();
    /// Scales the spaces to the size that the board has now. False when that was the size before.
    bool Rescale();
    void HideSpaces();
    /// Places the players' boxes and the marker, and counts the round when the first player is on. The pieces
    /// are hidden by it and must be drawn afterwards.
    void DrawSpaces();
    void HidePlayers();
    /// Puts the marker on the space's corner in the overview.
    void SetOverviewSpace(const CSpace& space);
    /// One step of the marker's cycle of colours; a colour that is none of them stays.
    void timerOverviewSpace_Timer();

    float XFactor = 0;
    float YFactor = 0;

  private:
    void MeasureBoard();
    void PlaceBoxes();
    void CountRound(Integer index);

    Globals& m_g;
    MainForm& m_form;
    modInstallUninstall& m_packages;
    std::shared_ptr<const FilePicture> m_boardPicture;
};

}  // namespace tabulon
