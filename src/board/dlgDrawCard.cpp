#include "board/dlgDrawCard.h"

#include <algorithm>

#include "platform/numbers.h"
#include "platform/text.h"
#include "presentation/modRepositioner.h"
#include "presentation/text_fitting.h"

namespace tabulon {

namespace {

constexpr int RowCount = 4;
constexpr float OffScreen = -100000;  // twips

// Pixels. Between two rows is room for the picture at the bottom, since the dialog may end there.
constexpr int FirstRow = 140;
constexpr int RowStep = 101;
constexpr int RowHeight = 86;

bool IsBlank(const std::string& text) { return text.empty() || text == " "; }

}  // namespace

DlgDrawCard::DlgDrawCard(Globals& g, FrmGameMusic& music, DlgMsgOk& dlgMsgOk)
    : Form(g.TheScreen, "dlgDrawCard"), m_g(g), m_music(music), m_dlgMsgOk(dlgMsgOk) {
    for (int i = 0; i < RowCount; ++i) {
        lblIdentifier[i].Click = [this, i] { lblIdentifier_Click(i); };
        lblAnswer[i].Click = [this, i] { lblAnswer_Click(i); };
        for (Label* part : {&lblIdentifier[i], &lblAnswer[i]}) {
            part->MouseMove = [this, i] { LightAnswer(i, !IsComputer); };
            part->MouseLeave = [this, i] { LightAnswer(i, false); };
        }
    }
    Timer1.Tick = [this] { Timer1_Timer(); };
    KeyUp = [this](int code, int) { return Form_KeyUp(code); };
}

void DlgDrawCard::Design() {
    Caption = "Question";
    imgQuestion.Picture = Picture::Product("product/question");
    lblQuestion.ToolTipText = "Here's the question...";
    lblQuestion.ForeColor = TextOnPaper;
    lblQuestion.Centred = true;
    for (int i = 0; i < RowCount; ++i) {
        const std::string letter(1, static_cast<char>('A' + i));
        lblIdentifier[i].Caption = "&" + letter + ")";
        lblIdentifier[i].ToolTipText = "Click here, or tap the letter \"" + letter + "\"";
        lblAnswer[i].ToolTipText = lblIdentifier[i].ToolTipText;
        lblIdentifier[i].ForeColor = TextOnPaper;
        lblIdentifier[i].Centred = true;
        lblIdentifier[i].TabStop = false;
        LightAnswer(i, false);
        imgAnswer[i].Border = false;
        imgAnswer[i].Visible = lblIdentifier[i].Visible = lblAnswer[i].Visible = true;
    }
    imgBottom.Picture = Picture::Product("product/card-bottom");
    Timer1.Enabled = false;
    AnswerPicked.fill(false);
    m_picking = false;
}

void DlgDrawCard::RepositionElements() {
    Procedure(m_g.gErrHandler, "dlgDrawCard:RepositionElements", [&] {
        PositionForm(m_g, *this, 455, 544, 0);
        PositionObjects(m_g, {{&imgQuestion, 8, 8, 439, 124},
                              {&lblQuestion, 20, 14, 415, 108, 18, 14},
                              {&imgBottom, 8, 529, 439, 10}});
        for (int i = 0; i < RowCount; ++i) {
            const int top = FirstRow + i * RowStep;
            PositionObjects(m_g, {{&imgAnswer[i], 8, top, 439, RowHeight},
                                  {&lblIdentifier[i], 16, top, 44, RowHeight, 18, 14},
                                  {&lblAnswer[i], 64, top, 376, RowHeight, 16, 13}});
        }
    });
}

void DlgDrawCard::GetData(const std::shared_ptr<CGame>& oGame, CCard& oCard, Integer& intActionType,
                          Integer& intData1, Integer& intTries, bool& bDone, bool& bCorrect, bool bIsComputer,
                          bool bStartMusic, bool& Result) {
    Procedure(m_g.gErrHandler, "dlgDrawCard:GetData", [&] {
        Load();
        RepositionElements();
        Result = true;
        if (bStartMusic && m_music.Status() != "playing")
            m_music.PlayGameMusic(oGame->MusicGenre, "draw_card", true);
        Game = oGame;
        Card = &oCard;
        Tries = intTries;
        Done = bDone;
        IsComputer = bIsComputer;
        FillTexts();
        RepositionObjects();
        SetFormObjectFonts(m_g, *this, Game->Font, Game->FontSize);
        Timer1.Enabled = IsComputer;
        ShowModal();
        intActionType = ActionType;
        intData1 = Data1;
        intTries = Tries;
        bDone = Done;
        bCorrect = Correct;
        MoveOffScreen();
        Unload();
    });
}

void DlgDrawCard::FillTexts() {
    lblQuestion.Caption = DoubleAmpersands(Card->message);
    lblAnswer[0].Caption = DoubleAmpersands(Card->Answer1);
    lblAnswer[1].Caption = DoubleAmpersands(Card->Answer2);
    lblAnswer[2].Caption = DoubleAmpersands(Card->Answer3);
    lblAnswer[3].Caption = DoubleAmpersands(Card->Answer4);
}

// By row and not from the end: a blank row cuts the dialog there, also under a filled one below.
void DlgDrawCard::RepositionObjects() {
    Procedure(m_g.gErrHandler, "dlgDrawCard:RepositionObjects", [&] {
        for (int i = RowCount - 1; i >= 1; --i) {
            if (!IsBlank(lblAnswer[i].Caption)) continue;
            imgAnswer[i].Visible = lblAnswer[i].Visible = lblIdentifier[i].Visible = false;
            Height = lblAnswer[i].Top;
        }
        imgBottom.Top = Height - imgBottom.Height - 5;
    });
}

void DlgDrawCard::LightAnswer(int index, bool lit) {
    imgAnswer[index].Picture = Picture::Product(lit ? "product/answer-lit" : "product/answer");
}

void DlgDrawCard::lblAnswer_Click(int Index) {
    Procedure(m_g.gErrHandler, "dlgDrawCard:lblAnswer_Click", [&] {
        if (!IsComputer) lblIdentifier_Click(Index);
    });
}

void DlgDrawCard::lblIdentifier_Click(int Index) {
    Procedure(m_g.gErrHandler, "dlgDrawCard:lblIdentifier_Click", [&] {
        if (IsComputer) return;
        ChooseAnswer(Index);
        Hide();
    });
}

bool DlgDrawCard::Form_KeyUp(int KeyCode) {
    bool acted = false;
    Procedure(m_g.gErrHandler, "dlgDrawCard:Form_KeyUp", [&] {
        if (IsComputer) return;
        acted = KeyCode == Key::Escape || (KeyCode >= Key::A && KeyCode <= Key::D);
        if (KeyCode == Key::Escape) {
            Hide();
        } else if (acted) {
            lblIdentifier_Click(KeyCode - Key::A);
        }
    });
    return acted;
}

void DlgDrawCard::Timer1_Timer() {
    // The messages of a pick run timers, and this one still stands.
    if (m_picking) return;
    m_picking = true;
    Procedure(m_g.gErrHandler, "dlgDrawCard:Timer1_Timer", [&] {
        if (IsComputer) PickAnswer();
    });
    m_picking = false;
}

void DlgDrawCard::PickAnswer() {
    bool anyLeft = false;
    int answer = 0;
    do {
        answer = m_g.Random.Draw(3, 1);
        AnswerAlreadyPicked(answer, anyLeft);
    } while (!anyLeft);
    AnswerPicked[static_cast<std::size_t>(answer)] = true;
    ChooseAnswer(answer);
    ToggleTimerState();
}

// Answers whether any answer is left, whatever it is asked for.
void DlgDrawCard::AnswerAlreadyPicked(int /*Index*/, bool& Result) {
    Procedure(m_g.gErrHandler, "dlgDrawCard:AnswerAlreadyPicked", [&] {
        Result = std::find(AnswerPicked.begin(), AnswerPicked.end(), false) != AnswerPicked.end();
    });
}

void DlgDrawCard::ToggleTimerState() {
    Procedure(m_g.gErrHandler, "dlgDrawCard:ToggleTimerState", [&] {
        if (IsComputer) Timer1.Enabled = !Timer1.Enabled;
    });
}

void DlgDrawCard::ChooseAnswer(int Index) {
    Procedure(m_g.gErrHandler, "dlgDrawCard:ChooseAnswer", [&] {
        if (Index < 0 || Index >= RowCount) return;
        imgAnswer[Index].Border = true;
        if (AnswerChosen) AnswerChosen(Index);
        if (Card->CorrectAnswer == Index) {
            CorrectResponse();
        } else {
            IncorrectResponse();
        }
    });
}

void DlgDrawCard::CorrectResponse() {
    Procedure(m_g.gErrHandler, "dlgDrawCard:CorrectResponse", [&] {
        m_music.StopGameMusic();
        m_music.PlayGameMusic(Game->MusicGenre, "right_answer", false);
        if (!IsBlank(Card->CorrectMessage)) TellResult(Card->CorrectMessage);
        ActionType = Card->CorrectActionType;
        Data1 = Card->CorrectData1;
        Done = true;
        Correct = true;
    });
}

void DlgDrawCard::IncorrectResponse() {
    Procedure(m_g.gErrHandler, "dlgDrawCard:IncorrectResponse", [&] {
        ActionType = Card->IncorrectActionType;
        Data1 = Card->IncorrectData1;
        if (Game->Tries >= 1) {
            NextTry();
        } else {
            Done = true;
        }
    });
}

void DlgDrawCard::NextTry() {
    Procedure(m_g.gErrHandler, "dlgDrawCard:NextTry", [&] {
        Tries -= 1;
        if (Tries == 0) {
            TellMissed();
        } else {
            TellTriesLeft();
        }
    });
}

void DlgDrawCard::TellTriesLeft() {
    MoveOffScreen();
    Hide();
    const std::string word = Tries < 2 ? "try" : "tries";
    m_dlgMsgOk.ShowMessage(*Game, "You have " + ToText(Tries) + " " + word + " left.", IsComputer, false);
    Done = false;
    ToggleTimerState();
}

void DlgDrawCard::TellMissed() {
    m_music.StopGameMusic();
    m_music.PlayGameMusic(Game->MusicGenre, "wrong_answer", false);
    TellResult(IsBlank(Card->IncorrectMessage) ? "Sorry you missed this one." : Card->IncorrectMessage);
    Done = true;
    Correct = false;
}

void DlgDrawCard::TellResult(const std::string& message) {
    MoveOffScreen();
    Hide();
    m_g.TheScreen.SetMousePointer(MousePointer::Hourglass);
    m_dlgMsgOk.ShowMessage(*Game, message, IsComputer, true);
    Left = (m_g.TheScreen.TwipsPerPixelX() * static_cast<float>(m_g.TheScreen.WidthPixels()) - Width) / 2;
    m_g.TheScreen.SetMousePointer(MousePointer::Default);
}

void DlgDrawCard::MoveOffScreen() { Left = OffScreen; }

}  // namespace tabulon
