// Making the photo of a person of a picture that the user gives.
// SPDX-License-Identifier: MIT
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <desktop/forms/PhotoMaker.h>

namespace orvo::desktop {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr char kSecret[] = "51.5074 N, 0.1278 W";

class PhotoMakerTest : public testing::Test {
protected:
    QString File(const QByteArray& bytes, qint64 size) {
        QFile file(folder.filePath("picture"));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        EXPECT_TRUE(file.resize(std::max<qint64>(size, bytes.size())));
        return file.fileName();
    }
    QTemporaryDir folder;
};

// Of a camera that was held upright and says where it was.
QByteArray JpegOfCamera() {
    QImage image(900, 600, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "jpeg"));
    using namespace std::string_literals;
    const std::string exif =
        "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0"s + kSecret;
    const std::string head{'\xFF', '\xE1', '\0', static_cast<char>(exif.size() + 2)};
    return bytes.insert(2, QByteArray::fromStdString(head + exif));
}

TEST_F(PhotoMakerTest, APhotoIsUprightAndSmallAndSaysNothingOfItsPlace) {
    QString problem;
    const QImage image = ReadPhoto(File(JpegOfCamera(), 0), problem);

    const PersonPhoto photo = MakePhoto(image);

    EXPECT_EQ(image.size(), QSize(341, 512));
    EXPECT_EQ(photo.mediaType, "image/jpeg");
    EXPECT_THAT(photo.bytes, Not(HasSubstr(kSecret)));
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(photo.bytes)).size(), QSize(341, 512));
}

TEST_F(PhotoMakerTest, WhatShowsThroughStaysSo) {
    QImage image(1024, 100, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    image.setText("Place", kSecret);

    const PersonPhoto photo = MakePhoto(image);

    EXPECT_EQ(photo.mediaType, "image/png");
    EXPECT_THAT(photo.bytes, Not(HasSubstr(kSecret)));
    EXPECT_EQ(QImage::fromData(QByteArray::fromStdString(photo.bytes)).size(), QSize(512, 50));
}

TEST_F(PhotoMakerTest, WhatCanNotBeReadIsToldWithItsReason) {
    constexpr struct {
        const char* bytes;
        qint64 size;
        const char* problem;
    } rows[] = {{"no picture", 0, "no picture that can be read"},
                {"P6\n60000 60000\n255\n", 0, "too many pixels"},
                {"P6\n1 1\n255\n", 50 << 20, "larger than 32 MB"}};
    for (const auto& row : rows) {
        QString problem;
        EXPECT_TRUE(ReadPhoto(File(row.bytes, row.size), problem).isNull()) << row.bytes;
        EXPECT_THAT(problem.toStdString(), HasSubstr(row.problem));
    }
    QString problem;
    EXPECT_TRUE(ReadPhoto(folder.path(), problem).isNull());
    EXPECT_THAT(problem.toStdString(), HasSubstr("can't be read"));
}

}  // namespace
}  // namespace orvo::desktop
