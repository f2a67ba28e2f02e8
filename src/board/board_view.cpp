#include "board/board_view.h"

#include "content/required.h"
#include "platform/files.h"
#include "platform/numbers.h"

namespace tabulon {

namespace {

constexpr Colour MarkerCycle[] = {{255, 0, 0}, {255, 128, 0}, {255, 255, 0}, {0, 255, 0},
                                  {0, 0, 255}, {8, 46, 84},   {143, 95, 154}};

double Quotient(double dividend, double divisor) {
    if (divisor == 0) throw Failure(FailureNumber::DivisionByZero);
    return dividend / divisor;
}

}  // namespace

void BoardView::LoadGameBoard() {
    Procedure(m_g.gErrHandler, "frmMain:LoadGameBoard", [&] {
        CGame& game = Required(m_form.Game);
        m_packages.ExtractFile(m_g.AppDir / (m_form.GameDirectory + ".gam"), m_g.AppDir, game.BoardImage,
                               false);
        const Picture board = m_g.TheScreen.LoadPicture(FindFile(m_g.AppDir, game.BoardImage));
        m_boardPicture = board.File;
        m_form.picHolder.Picture = board;
        m_form.picMainBoard.Picture = board;
        MeasureBoard();
        game.Spaces.FactorSpaces(XFactor, YFactor);
        m_form.imgOverview.Picture = board;
    });
}

void BoardView::MeasureBoard() {
    YFactor = static_cast<float>(m_form.BoardHeight()) / static_cast<float>(m_boardPicture->Height);
    XFactor = static_cast<float>(m_form.BoardWidth()) / static_cast<float>(m_boardPicture->Width);
}

bool BoardView::Rescale() {
    if (!m_boardPicture || !m_form.Game) return false;
    const auto before = std::pair(XFactor, YFactor);
    MeasureBoard();
    if (before == std::pair(XFactor, YFactor)) return false;
    m_form.Game->Spaces.RefactorSpaces(XFactor, YFactor);
    return true;
}

void BoardView::HideSpaces() {
    Procedure(m_g.gErrHandler, "frmMain:HideSpaces", [&] {
        for (Image& box : m_form.tpbSpace) box.Visible = false;
    });
}

void BoardView::HidePlayers() {
    Procedure(m_g.gErrHandler, "frmMain:HidePlayers", [&] {
        for (Image& piece : m_form.imgPlayingPiece) piece.Visible = false;
    });
}

void BoardView::DrawSpaces() {
    Procedure(m_g.gErrHandler, "frmMain:DrawSpaces", [&] {
        const PlayState& state = m_form.State;
        HidePlayers();
        PlaceBoxes();
        const Integer index = state.RuleA(state.WhoseTurn);
        // By place in the collection, not by number.
        const CGame& game = Required(m_form.Game);
        SetOverviewSpace(game.Spaces.Item(state.Position[index].Value()));
        CountRound(index);
        m_form.lblRound.Caption = "Round ";
        m_form.lblRound.Caption += ToText(m_form.State.Round);
        m_form.lblRound.Raise();
    });
}

void BoardView::PlaceBoxes() {
    CGame& game = Required(m_form.Game);
    const Array<Integer>& positions = m_form.State.Position;
    for (int i = 0; i <= positions.UBound(); ++i) {
        const auto space = game.Spaces.ItemBySequence(positions[i]);
        if (!space) continue;
        Image& box = m_form.tpbSpace[i];
        box.Move(static_cast<float>(space->Left), static_cast<float>(space->Top),
                 static_cast<float>(space->Width), static_cast<float>(space->Height));
        box.Visible = true;
    }
}

void BoardView::CountRound(Integer index) {
    const int first = m_form.State.LoadedGame ? 1 : 0;
    if (index == first) m_form.State.Round += 1;
}

void BoardView::SetOverviewSpace(const CSpace& space) {
    Procedure(m_g.gErrHandler, "frmMain:SetOverviewSpace", [&] {
        const Image& overview = m_form.imgOverview;
        const double x = Quotient(space.Left, XFactor);
        const double y = Quotient(space.Top, YFactor);
        const FilePicture& picture = Required(m_boardPicture);
        const double scaleX = static_cast<double>(overview.Width) / picture.Width;
        const double scaleY = static_cast<double>(overview.Height) / picture.Height;
        m_form.shpSpaceOverview.Left = static_cast<float>(x * scaleX + overview.Left);
        m_form.shpSpaceOverview.Top = static_cast<float>(y * scaleY + overview.Top);
        m_form.shpSpaceOverview.Visible = true;
        m_form.shpSpaceOverview.Raise();
    });
}

void BoardView::timerOverviewSpace_Timer() {
    Procedure(m_g.gErrHandler, "frmMain:timerOverviewSpace_Timer", [&] {
        Colour& marker = m_form.shpSpaceOverview.FillColor;
        const int count = static_cast<int>(std::size(MarkerCycle));
        for (int i = 0; i < count; ++i) {
            if (marker != MarkerCycle[i]) continue;
            marker = MarkerCycle[(i + 1) % count];
            return;
        }
    });
}

}  // namespace tabulon
