// How long a board of a 4K screen takes to be painted anew, without a display.
#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QWidget>
#include <benchmark/benchmark.h>

#include "qt/qt_screen.h"

namespace tabulon {
namespace {

constexpr int Width = 3656;  // of the board on a screen of 3840 × 2160
constexpr int Height = 1979;
constexpr int Pieces = 6;

/// A board as a package holds it, smaller than the screen.
Picture BoardPicture() {
    QImage image(1600, 1000, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, qRgb(x & 255, y & 255, (x + y) & 255));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    auto file = std::make_shared<FilePicture>();
    file->Bytes = bytes.toStdString();
    file->Width = image.width();
    file->Height = image.height();
    return {PictureSet::File, 0, {}, file};
}

class BoardForm final : public Form {
  public:
    explicit BoardForm(Screen& screen) : Form(screen, "frmBoard") {
        Frame = WindowFrame::None;
        Form::Width = static_cast<float>(tabulon::Width) * screen.TwipsPerPixelX();
        Form::Height = static_cast<float>(tabulon::Height) * screen.TwipsPerPixelY();
        picMainBoard.Move(0, 0, Form::Width, Form::Height);
        picMainBoard.Picture = BoardPicture();
        for (int i = 0; i < Pieces; ++i) {
            pieces[i].Picture = Picture::Piece(8 * i + 1);
            pieces[i].Move(static_cast<float>(100 + 300 * i), 700, 33, 33);
        }
    }

    PictureBox picMainBoard{*this, "picMainBoard"};
    ControlArray<Image, Pieces> pieces{*this, "imgPlayingPiece", &picMainBoard};
};

struct Stage {
    Stage() {
        form.Show();
        screen.PumpEvents();
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == "frmBoard") board = window->findChild<QWidget*>("picMainBoard");
    }
    QtScreen screen{TABULON_PICTURES, "bench"};
    BoardForm form{screen};
    QWidget* board = nullptr;
};

void WholeBoard(benchmark::State& state) {
    Stage stage;
    for (auto _ : state) stage.board->repaint();
}
BENCHMARK(WholeBoard)->Unit(benchmark::kMillisecond);

void PieceMoves(benchmark::State& state) {
    Stage stage;
    float left = 0;
    for (auto _ : state) {
        left = left > 3000 ? 0 : left + 40;
        stage.form.pieces[0].Left = left;
        stage.screen.PumpEvents();
    }
}
BENCHMARK(PieceMoves)->Unit(benchmark::kMillisecond);

/// What the choice of a game costs once: the picture is decoded and scaled.
void FirstPicture(benchmark::State& state) {
    const Picture picture = BoardPicture();
    for (auto _ : state) {
        PictureStore store(TABULON_PICTURES);
        benchmark::DoNotOptimize(store.Get(picture, {Width, Height}, 1));
    }
}
BENCHMARK(FirstPicture)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tabulon

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
