#include "board/main_form.h"

#include <algorithm>

namespace tabulon {

namespace {

constexpr float DesignTwipsPerPixel = 15;
constexpr int RightColumn = 177;
constexpr int FirstPlateTop = 181 + 10;
constexpr int PlateGap = 32;
constexpr int CharacterSize = 64;
constexpr int SmallestCharacter = 38;
constexpr int LowestPoints = 18;  // one line
constexpr int CharacterLeft = 632;
constexpr int AboveCharacter = 12, BelowCharacter = 16;  // what a plate reaches beyond its piece
constexpr const char* Ordinals[] = {"First", "Second", "Third", "Fourth", "Fifth", "Sixth"};

struct Place {
    Control* Object;
    int Left, Top, Width, Height;
};

/// What stands on one plate, in pixels, with a piece of that size; beside one of full size the labels are as
/// high as a name and an amount of one word a line need.
std::vector<Place> PlatePlaces(MainForm& form, int index, int character = CharacterSize) {
    const int top = FirstPlateTop + index * (character + PlateGap);
    const int labels = CharacterLeft + character + 7;
    const int points =
        LowestPoints + (character - SmallestCharacter) * 16 / (CharacterSize - SmallestCharacter);
    const int name = character + 14 - points;
    const int width = 791 - labels;
    return {{&form.imgPlate[index], CharacterLeft - 10, top - AboveCharacter, 176,
             AboveCharacter + character + BelowCharacter},
            {&form.imgSeat[index], CharacterLeft, top - 7, character + 2, character + 18},
            {&form.imgCharacter[index], CharacterLeft, top, character, character},
            {&form.lblName[index], labels, top - 4, width, name},
            {&form.lblPoints[index], labels, top - 2 + name, width, points}};
}

/// The size of a piece that lets all plates stand on a screen of that height.
int CharacterSizeOn(int screenHeight) {
    const int room = screenHeight - FirstPlateTop - BelowCharacter - (MaxSeats - 1) * PlateGap;
    return std::clamp(room / MaxSeats, SmallestCharacter, CharacterSize);
}

/// Where the controls of the form itself stand by design, in pixels.
std::vector<Place> DesignPlaces(MainForm& form) {
    return {
        {&form.cmdMinimizeWindow, 960, 0, 31, 33}, {&form.cmdQuit, 920, 0, 31, 33},
        {&form.cmdTabulon, 40, 120, 201, 29},      {&form.cmdSoundOff, 545, 5, 40, 29},
        {&form.cmdSoundOn, 545, 5, 40, 29},        {&form.cmdNew, 280, 40, 57, 57},
        {&form.cmdRoll, 344, 40, 57, 57},          {&form.cmdSpin, 344, 40, 57, 57},
        {&form.cmdPass, 344, 40, 57, 57},          {&form.cmdSaveGame, 408, 40, 57, 57},
        {&form.cmdLoadGame, 472, 40, 57, 57},      {&form.cmdHelp, 536, 40, 57, 57},
        {&form.imgBoardStrip, 0, 177, 620, 4},     {&form.imgStripEnd, 560, 0, 60, 177},
        {&form.imgBoardSide, 617, 181, 3, 424},    {&form.imgRound, 640, 0, RightColumn, 181},
        {&form.lblRound, 664, 15, 88, 26},         {&form.lblGameName, 40, 40, 233, 72},
        {&form.picOverview, 660, 44, 137, 129},    {&form.picHolder, 0, 0, 81, 33},
        {&form.picMainBoard, 0, 181, 617, 424},    {&form.lblSpoken, -1000, -1000, 900, 900},
    };
}

void DesignPlace(const std::vector<Place>& places) {
    const float scale = DesignTwipsPerPixel;
    for (const Place& place : places) {
        place.Object->Move(scale * static_cast<float>(place.Left), scale * static_cast<float>(place.Top),
                           scale * static_cast<float>(place.Width), scale * static_cast<float>(place.Height));
    }
}

void MakeTwin(Button& twin, const char* caption) {
    twin.Caption = caption;
    twin.OutOfSight = true;
    twin.TabStop = false;
}

void MakePictureButton(PictureButton& button, const char* picture, const char* name, const char* toolTip) {
    if (*picture) button.Picture = Picture::Product(picture);
    button.AccessibleName = name;
    button.ToolTipText = toolTip;
    button.Enabled = true;
    button.Visible = true;
}

}  // namespace

MainForm::MainForm(Globals& g) : Form(g.TheScreen, "frmMain"), m_g(g) { Frame = WindowFrame::FullScreen; }

void MainForm::Design() {
    DesignPlace(DesignPlaces(*this));
    Background = Picture::Product("product/table");
    imgBoardStrip.Picture = Picture::Product("product/strip");
    imgStripEnd.Picture = Picture::Product("product/strip-end");
    imgBoardSide.Picture = Picture::Product("product/side");
    imgRound.Picture = Picture::Product("product/round");
    DesignButtons();
    DesignBoard();
    DesignPlates();
}

void MainForm::DesignButtons() {
    MakePictureButton(cmdNew, "buttons/new", "New game", "Start a new game");
    MakePictureButton(cmdRoll, "buttons/roll", "Roll dice", "Roll the dice");
    MakePictureButton(cmdSpin, "buttons/spin", "Spin slots", "Spin the slots");
    MakePictureButton(cmdPass, "buttons/pass", "Pass", "Pass this turn");
    MakePictureButton(cmdSaveGame, "buttons/save", "Save game", "Save this game");
    MakePictureButton(cmdLoadGame, "buttons/load", "Load game", "Load another game");
    MakePictureButton(cmdHelp, "buttons/help", "Help", "Get help");
    MakePictureButton(cmdSoundOff, "buttons/sound-on", "Turn the sound off", "Turn the sound off");
    MakePictureButton(cmdSoundOn, "buttons/sound-off", "Turn the sound on", "Turn the sound on");
    MakePictureButton(cmdMinimizeWindow, "buttons/minimize", "Minimize", "Minimize the window");
    MakePictureButton(cmdQuit, "buttons/quit", "Quit", "Leave the game");
    MakePictureButton(cmdTabulon, "", "Make your own games", "Make your own games");
    cmdTabulon.Caption = "Make your own games";
    cmdTabulon.FontTextCaption.Size = 10;
    cmdRoll.Visible = cmdSpin.Visible = cmdPass.Visible = cmdSoundOn.Visible = false;
    cmdSaveGame.Enabled = false;
    // They stand over the corner of imgRound.
    cmdMinimizeWindow.Raise();
    cmdQuit.Raise();
    MakeTwin(cmdFakeNew, "Ne&w");
    MakeTwin(cmdFakeLoadGame, "&Load Game");
    MakeTwin(cmdFakeSaveGame, "&Save Game");
    MakeTwin(cmdFakeHelp, "&Help");
    MakeTwin(cmdFakeQuit, "&Quit");
    MakeTwin(cmdFakeRoll, "");
    cmdNew.Twin = &cmdFakeNew;
    cmdLoadGame.Twin = &cmdFakeLoadGame;
    cmdSaveGame.Twin = &cmdFakeSaveGame;
    cmdHelp.Twin = &cmdFakeHelp;
    cmdQuit.Twin = &cmdFakeQuit;
    cmdRoll.Twin = cmdSpin.Twin = cmdPass.Twin = &cmdFakeRoll;
}

void MainForm::DesignBoard() {
    lblRound.ToolTipText = "How many times has everyone gone around the board";
    lblRound.Font = {"Comic Neue", 14, true};
    lblRound.ForeColor = PlateColour::Other;
    lblGameName.Font = {"Comic Neue", 20, true};
    lblGameName.ForeColor = PlateColour::Other;
    imgOverview.Move(0, 0, 136, 128);
    imgOverview.ToolTipText = "You are here, and it's your turn";
    shpSpaceOverview.Move(0, 0, 17, 17);
    shpSpaceOverview.FillColor = MarkerDesignColour;
    shpSpaceOverview.Raise();
    timerOverviewSpace.Enabled = false;
    picHolder.Visible = false;
    for (Image& piece : imgPlayingPiece) piece.Move(0, 0, 33, 33);
    for (Image& die : imgDice) {
        die.Move(0, 0, 49, 49);
        die.Visible = false;
    }
}

void MainForm::DesignPlates() {
    for (int i = 0; i < MaxSeats; ++i) {
        const std::string ordinal = Ordinals[i];
        DesignPlace(PlatePlaces(*this, i));
        imgPlate[i].Picture = Picture::Product("product/plate");
        imgSeat[i].Picture = Picture::Product("product/plate-seat");
        imgPlate[i].Visible = imgSeat[i].Visible = false;
        imgCharacter[i].ToolTipText = ordinal + " player's playing piece";
        lblName[i].ToolTipText = ordinal + " player's name";
        lblName[i].UseMnemonic = false;
        lblName[i].Font = {"Comic Neue", 12, true};
        lblName[i].ForeColor = PlateColour::Other;
        lblPoints[i].ToolTipText = ordinal + " player's points";
        lblPoints[i].Font = {"Comic Neue", 11, false};
        lblPoints[i].ForeColor = PlateColour::Other;
        lblPoints[i].Visible = false;
    }
}

void MainForm::RepositionElements() {
    Procedure(m_g.gErrHandler, "frmMain:RepositionElements", [&] {
        if (m_g.SmallFonts) return;
        Reposition(DesignPlaces(*this));
        for (PictureButton* sound : {&cmdSoundOff, &cmdSoundOn})
            PositionObject(m_g, *sound, 0, 348, 6536, 64, 480);
        PositionObject(m_g, cmdTabulon, 8, 0, 0, 0, 0);
        PositionObject(m_g, lblRound, 11, 0, 0, 0, 0);
        PositionObject(m_g, lblGameName, 16, 0, 0, 0, 0);
        for (int i = 0; i < MaxSeats; ++i) {
            Reposition(PlatePlaces(*this, i));
            PositionObject(m_g, lblName[i], 10, 0, 0, 0, 0);
            PositionObject(m_g, lblPoints[i], 9, 0, 0, 0, 0);
        }
    });
}

template <class Places>
void MainForm::Reposition(const Places& places) {
    for (const auto& place : places)
        PositionObject(m_g, *place.Object, 0, Y(place.Height), X(place.Left), Y(place.Top), X(place.Width));
}

void MainForm::ColourPlate(Integer seat, Colour colour) {
    const Integer plate = seat - 1;
    const bool current = colour == PlateColour::Current;
    imgPlate[plate].Picture = Picture::Product(current ? "product/plate-current" : "product/plate");
    imgSeat[plate].Picture = Picture::Product(current ? "product/plate-seat-current" : "product/plate-seat");
    lblName[plate].ForeColor = lblPoints[plate].ForeColor = colour;
}

void MainForm::FocusTurnButton() {
    Control* next = &cmdNew;
    for (PictureButton* button : {&cmdPass, &cmdSpin, &cmdRoll}) {
        if (button->Enabled && button->Visible && !State.GameOver) next = button;
    }
    next->SetFocus();
}

void MainForm::ShowPlates() {
    for (int i = 0; i < MaxSeats; ++i) {
        imgPlate[i].Visible = imgSeat[i].Visible = true;
        for (Control* part : std::initializer_list<Control*>{&imgPlate[i], &imgSeat[i], &imgCharacter[i],
                                                             &lblName[i], &lblPoints[i]})
            part->Withheld = i >= State.PlayerCount.Value();
    }
}

void MainForm::ResizeObjects() {
    Procedure(m_g.gErrHandler, "frmMain:ResizeObjects", [&] {
        if (WindowState == WindowState::Minimised) return;
        const float screenWidth = X(m_g.TheScreen.WidthPixels());
        const float screenHeight = Y(m_g.TheScreen.HeightPixels());
        Left = 0;
        Top = 0;
        Width = screenWidth;
        Height = screenHeight;
        PlaceRightColumn(screenWidth);
        PlaceBoard(screenHeight);
        PlacePlates();
        PlaceButtons();
    });
}

void MainForm::PlaceRightColumn(float screenWidth) {
    imgRound.Left = screenWidth - X(RightColumn);
    lblRound.Left = imgRound.Left + X(24);
    lblRound.Top = imgRound.Top + Y(15);
    picOverview.Left = imgRound.Left + imgRound.Width / 2 - picOverview.Width / 2;
    cmdQuit.Left = screenWidth - cmdQuit.Width;
    cmdMinimizeWindow.Left = cmdQuit.Left - X(3) - cmdMinimizeWindow.Width;
}

void MainForm::PlaceBoard(float screenHeight) {
    picMainBoard.Left = 0;
    picMainBoard.Top = picOverview.Top + picOverview.Height + Y(8);
    picMainBoard.Height = screenHeight - picMainBoard.Top;
    picMainBoard.Width = imgRound.Left - X(7);
    imgBoardStrip.Left = 0;
    imgBoardStrip.Width = picMainBoard.Width + X(3);
    imgBoardStrip.Top = picMainBoard.Top - Y(4);
    imgBoardSide.Left = picMainBoard.Width;
    imgBoardSide.Top = picMainBoard.Top;
    imgBoardSide.Height = picMainBoard.Height;
    imgStripEnd.Left = imgBoardStrip.Width - imgStripEnd.Width;
    imgStripEnd.Height = imgBoardStrip.Top;
}

/// Which plate the labels of a seat stand on is a matter of the game, so all parts keep their rows.
void MainForm::PlacePlates() {
    const int character = CharacterSizeOn(m_g.TheScreen.HeightPixels());
    const float step = imgCharacter[1].Top - imgCharacter[0].Top;
    const float growth = Y(character + PlateGap) - step;
    const float left = picMainBoard.Width + X(15 - CharacterLeft);
    for (int i = 0; i < MaxSeats; ++i) {
        const float nameHeight = lblName[i].Height;
        for (const Place& place : PlatePlaces(*this, i, character)) {
            Control& part = *place.Object;
            part.Left = left + X(place.Left);
            part.Top += growth * std::floor((part.Top - Y(FirstPlateTop - AboveCharacter)) / step);
            part.Width = X(place.Width);
            part.Height = Y(place.Height);
        }
        lblPoints[i].Top += lblName[i].Height - nameHeight;
    }
}

void MainForm::PlaceButtons() {
    const float edge = imgStripEnd.Left;
    const float gap = X(7);
    cmdHelp.Left = edge - X(86);
    cmdLoadGame.Left = cmdHelp.Left - gap - cmdLoadGame.Width;
    cmdSaveGame.Left = cmdLoadGame.Left - gap - cmdSaveGame.Width;
    cmdRoll.Left = cmdSaveGame.Left - gap - cmdRoll.Width;
    cmdSpin.Left = cmdRoll.Left;
    cmdPass.Left = cmdRoll.Left;
    cmdNew.Left = cmdRoll.Left - gap - cmdNew.Width;
    cmdSoundOff.Left = edge - X(77);
    cmdSoundOn.Left = cmdSoundOff.Left;
    lblGameName.Left = cmdTabulon.Left;
    lblGameName.Width = cmdNew.Left - gap - lblGameName.Left;
}

}  // namespace tabulon
