#pragma once

#include <cmath>
#include <functional>
#include <memory>
#include <string>

#include "content/CGame.h"
#include "diagnostics/globals.h"
#include "play/play_state.h"
#include "presentation/modRepositioner.h"

namespace tabulon {

/// The window of the program: its controls, where they stand, and the state of the game in play, which
/// belongs to it. What its controls do is the business of those who use it.
class MainForm : public Form {
  public:
    explicit MainForm(Globals& g);

    /// Places everything for large fonts; the design stands for small ones.
    void RepositionElements();
    /// Fits the form to the screen. A minimised form is left alone.
    void ResizeObjects();

    /// Shows the plates of the seats in the game, and nothing of what another game left on the others.
    void ShowPlates();
    /// Colours the text of a seat's plate. The ground of the current player's stands out besides.
    void ColourPlate(Integer seat, Colour colour);

    /// Puts the focus where the user goes on: on the visible button of the turn, or on New when nobody has one.
    void FocusTurnButton();

    /// The board's inner size in pixels.
    int BoardWidth() const {
        return static_cast<int>(std::lround(picMainBoard.Width / m_g.TheScreen.TwipsPerPixelX()));
    }
    int BoardHeight() const {
        return static_cast<int>(std::lround(picMainBoard.Height / m_g.TheScreen.TwipsPerPixelY()));
    }

    PlayState State;
    std::shared_ptr<CGame> Game;
    std::string GameName;
    std::string GameDirectory;

    /// For those who follow the course of a game: a turn begins, a piece has come to a space by its number,
    /// a space or card carries out its action code, a card was drawn.
    std::function<void()> TurnBegins;
    std::function<void(Integer Sequence)> PieceLands;
    std::function<void(Integer ActionType)> ActionRuns;
    std::function<void(const CCard& Card)> CardDrawn;

    /// To be called after events were served: who left the program then has no game to go on with.
    void EndIfLeft() const {
        if (!Game) throw ProgramEnd{};
    }

    PictureButton cmdNew{*this, "cmdNew"};
    PictureButton cmdRoll{*this, "cmdRoll"};
    PictureButton cmdSpin{*this, "cmdSpin"};
    PictureButton cmdPass{*this, "cmdPass"};
    PictureButton cmdSaveGame{*this, "cmdSaveGame"};
    PictureButton cmdLoadGame{*this, "cmdLoadGame"};
    PictureButton cmdHelp{*this, "cmdHelp"};
    PictureButton cmdSoundOff{*this, "cmdSoundOff"};
    PictureButton cmdSoundOn{*this, "cmdSoundOn"};
    PictureButton cmdMinimizeWindow{*this, "cmdMinimizeWindow"};
    PictureButton cmdQuit{*this, "cmdQuit"};
    PictureButton cmdTabulon{*this, "cmdTabulon"};
    // Before the twin of cmdSaveGame: both claim S while the slots are in play, and the first one gets it.
    Button cmdFakeRoll{*this, "cmdFakeRoll"};
    Button cmdFakeNew{*this, "cmdFakeNew"};
    Button cmdFakeLoadGame{*this, "cmdFakeLoadGame"};
    Button cmdFakeSaveGame{*this, "cmdFakeSaveGame"};
    Button cmdFakeHelp{*this, "cmdFakeHelp"};
    Button cmdFakeQuit{*this, "cmdFakeQuit"};

    Image imgBoardStrip{*this, "imgBoardStrip"};
    Image imgStripEnd{*this, "imgStripEnd"};
    Image imgBoardSide{*this, "imgBoardSide"};
    Image imgRound{*this, "imgRound"};
    Label lblRound{*this, "lblRound"};
    Label lblGameName{*this, "lblGameName"};

    PictureBox picOverview{*this, "picOverview"};
    Image imgOverview{*this, "imgOverview", &picOverview};
    Shape shpSpaceOverview{*this, "shpSpaceOverview", &picOverview};
    Timer timerOverviewSpace{*this, "timerOverviewSpace", 250, false};

    PictureBox picHolder{*this, "picHolder"};
    PictureBox picMainBoard{*this, "picMainBoard"};
    /// The box of each player over his space. It has no picture, so it is placed but shows nothing.
    ControlArray<Image, MaxSeats> tpbSpace{*this, "tpbSpace", &picMainBoard};
    ControlArray<Image, MaxSeats> imgPlayingPiece{*this, "imgPlayingPiece", &picMainBoard};
    ControlArray<Image, MaxSeats> imgDice{*this, "imgDice", &picMainBoard};

    /// Out of sight: what a screen reader says as soon as it stands here.
    Label lblSpoken{*this, "lblSpoken"};

    ControlArray<Image, MaxSeats> imgPlate{*this, "imgPlate"};
    ControlArray<Image, MaxSeats> imgSeat{*this, "imgSeat"};
    ControlArray<Image, MaxSeats> imgCharacter{*this, "imgCharacter"};
    ControlArray<Label, MaxSeats> lblName{*this, "lblName"};
    ControlArray<Label, MaxSeats> lblPoints{*this, "lblPoints"};

  protected:
    void Design() override;

    Globals& m_g;

  private:
    void DesignButtons();
    void DesignBoard();
    void DesignPlates();
    template <class Places>
    void Reposition(const Places& places);
    void PlaceRightColumn(float screenWidth);
    void PlaceBoard(float screenHeight);
    void PlacePlates();
    void PlaceButtons();
    float X(int pixels) const { return static_cast<float>(pixels) * m_g.TheScreen.TwipsPerPixelX(); }
    float Y(int pixels) const { return static_cast<float>(pixels) * m_g.TheScreen.TwipsPerPixelY(); }
};

/// Colours of the text on the players' plates.
namespace PlateColour {
inline constexpr Colour Current{150, 255, 150}, Other{255, 255, 255}, Bankrupt{255, 0, 0};
}

/// The colours that the marker of the overview has by design and after a win.
inline constexpr Colour MarkerDesignColour{0, 0, 255};
inline constexpr Colour MarkerWonColour{255, 0, 0};

}  // namespace tabulon
