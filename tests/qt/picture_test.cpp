#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include "platform/failure_of.h"
#include "qt/picture_reader.h"
#include "qt/picture_store.h"
#include "qt/screen_test.h"

namespace tabulon {
namespace {

QByteArray Encoded(const char* format, QSize size = {40, 30}, Qt::GlobalColor colour = Qt::red) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

/// The head of a BMP that says it is huge; no pixels follow.
QByteArray HugeBmp(qint32 width, qint32 height) {
    QByteArray bytes = Encoded("bmp");
    bytes.replace(18, 4, QByteArray(reinterpret_cast<const char*>(&width), 4));
    bytes.replace(22, 4, QByteArray(reinterpret_cast<const char*>(&height), 4));
    return bytes;
}

class PictureFiles : public ScreenTest {
  protected:
    std::filesystem::path Write(const QByteArray& bytes, const char* name = "board.bmp") const {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::WriteOnly)) file.write(bytes);
        return file.fileName().toStdString();
    }
    int FailureOf(const std::filesystem::path& file) {
        return test::FailureOf([&] { screen.LoadPicture(file); });
    }

  private:
    QTemporaryDir m_folder;
};

TEST_F(PictureFiles, AreKnownByTheirContent) {
    const QByteArray gif = QByteArray::fromBase64("R0lGODlhAQABAIAAAP8AAP///ywAAAAAAQABAAACAkQBADs=");
    EXPECT_EQ(screen.LoadPicture(Write(gif)).File->Width, 1);
    for (const char* format : {"bmp", "jpg", "png"}) {
        const Picture picture = screen.LoadPicture(Write(Encoded(format), "board.dat"));
        EXPECT_EQ(picture.File->Width, 40) << format;
        EXPECT_EQ(picture.File->Height, 30) << format;
    }
}

TEST_F(PictureFiles, FailWhenTheyAreNotThere) {
    EXPECT_EQ(FailureOf("/nowhere/board.bmp"), static_cast<int>(FailureNumber::FileNotFound));
    EXPECT_EQ(FailureOf("/"), static_cast<int>(FailureNumber::FileNotFound));
}

TEST_F(PictureFiles, AreRefusedWhenTheyAreBad) {
    const std::pair<const char*, QByteArray> rows[] = {
        {"Empty", {}},
        {"Garbage", "not a picture at all"},
        {"Svg", "<svg xmlns='http://www.w3.org/2000/svg'/>"},
        {"TruncatedPng", Encoded("png", {400, 300}).left(60)},
        {"HeadOfJpeg", Encoded("jpg").left(12)},
        {"TooWide", HugeBmp(16385, 1)},
        {"TooManyPixels", HugeBmp(16384, 16384)},
        {"Overflowing", HugeBmp(0x7fffffff, 0x7fffffff)},
        {"NoHeight", HugeBmp(40, 0)},
    };
    for (const auto& [name, bytes] : rows)
        EXPECT_EQ(FailureOf(Write(bytes)), static_cast<int>(FailureNumber::InvalidPicture)) << name;
}

TEST_F(PictureFiles, StretchOverTheWidgetThatShowsThem) {
    form.picBoard.Picture = screen.LoadPicture(Write(Encoded("png")));
    Show(form);
    form.imgPiece.Visible = form.shpMarker.Visible = false;
    screen.PumpEvents();
    const QImage board = Find(form.picBoard).grab().toImage();
    EXPECT_EQ(board.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(board.pixelColor(board.width() - 1, board.height() - 1), QColor(Qt::red));
}

class Store : public testing::Test {
  protected:
    /// What is not transparent.
    static int Marked(const QPixmap& pixmap) {
        const QImage image = pixmap.toImage();
        int marked = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) marked += qAlpha(image.pixel(x, y)) > 0;
        return marked;
    }
    /// Anything as dense as an outline stands in the outermost pixels.
    static bool IsCutOff(const QImage& image) {
        const int last = image.width() - 1;
        const auto isInk = [&image](int x, int y) { return qAlpha(image.pixel(x, y)) > 150; };
        for (int i = 0; i <= last; ++i)
            if (isInk(i, 0) || isInk(i, last) || isInk(0, i) || isInk(last, i)) return true;
        return false;
    }

    PictureStore store{TABULON_PICTURES};
};

TEST_F(Store, ShowsEachPieceAndFrameAsAnotherPicture) {
    std::vector<QImage> seen;
    for (int i = 1; i <= 48 + 24; ++i) {
        const Picture picture = i <= 48 ? Picture::Piece(i) : Picture::Die(i - 48);
        ASSERT_TRUE(store.HasFile(picture)) << i;
        const QImage image = store.Get(picture, {33, 33}, 1).toImage();
        EXPECT_EQ(std::count(seen.begin(), seen.end(), image), 0) << i;
        EXPECT_FALSE(IsCutOff(store.Get(picture, {200, 200}, 1).toImage())) << i;
        seen.push_back(image);
    }
}

TEST_F(Store, DrawsAtTheDensityOfTheScreen) {
    const QPixmap pixmap = store.Get(Picture::Piece(1), {33, 33}, 2);
    EXPECT_EQ(pixmap.size(), QSize(66, 66));
    EXPECT_EQ(pixmap.deviceIndependentSize(), QSizeF(33, 33));
}

TEST_F(Store, DrawsAPictureOncePerSize) {
    const QPixmap first = store.Get(Picture::Piece(1), {33, 33}, 1);
    EXPECT_EQ(store.Get(Picture::Piece(1), {33, 33}, 1).cacheKey(), first.cacheKey());
    EXPECT_NE(store.Get(Picture::Piece(1), {34, 34}, 1).cacheKey(), first.cacheKey());
}

TEST_F(Store, PutsACardForAPictureThatIsMissing) {
    PictureStore empty{"/nowhere"};
    EXPECT_GT(Marked(empty.Get(Picture::Piece(7), {33, 33}, 1)), 0);
    EXPECT_GT(Marked(empty.Get(Picture::Product("buttons/roll"), {33, 33}, 1)), 0);
    EXPECT_NE(empty.Get(Picture::Reel(7), {33, 33}, 1).toImage(),
              empty.Get(Picture::Reel(8), {33, 33}, 1).toImage());
    EXPECT_TRUE(empty.Get(Picture{}, {33, 33}, 1).isNull());
}

TEST_F(Store, TellsFilePicturesApartThoughTheirAddressIsUsedAgain) {
    const auto corner = [this](Qt::GlobalColor colour) {
        auto file = std::make_shared<FilePicture>();
        file->Bytes = Encoded("png", {4, 4}, colour).toStdString();
        return store.Get({PictureSet::File, 0, {}, file}, {8, 8}, 1).toImage().pixel(0, 0);
    };
    EXPECT_NE(corner(Qt::red), corner(Qt::blue));
}

}  // namespace
}  // namespace tabulon
