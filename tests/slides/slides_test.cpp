// SPDX-License-Identifier: MIT
// Slides and libraries: the format's own examples, both byte orders, damage.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "prancheta/slides/library.h"

using namespace prancheta;
using namespace prancheta::slides;

namespace {

std::string bytes(std::initializer_list<int> values) {
    std::string out;
    for (const int v : values) out.push_back(static_cast<char>(v));
    return out;
}

const std::string kId("AutoCAD Slide\r\n\x1a\0", 17);

/// 200 x 100 pixels, aspect 2: a frame of vectors of the three kinds and a triangle.
const std::string kExample =
    kId + bytes({0x56, 0x02, 0xC7, 0x00, 0x63, 0x00, 0x00, 0x2D, 0x31, 0x01, 0x02, 0x00, 0x34, 0x12,
                 0x07, 0xFF, 0x14, 0x00, 0x0A, 0x00, 0xB4, 0x00, 0x0A, 0x00, 0x00, 0xFB, 0x00, 0x00,
                 0x50, 0x64, 0xFE, 0x50, 0x0A, 0xFE, 0xBA, 0x03, 0xFF, 0x00, 0xFD, 0x03, 0x00, 0xFF,
                 0xFF, 0x00, 0xFD, 0x3C, 0x00, 0x1E, 0x00, 0x00, 0xFD, 0x64, 0x00, 0x1E, 0x00, 0x00,
                 0xFD, 0x50, 0x00, 0x3C, 0x00, 0x00, 0xFD, 0x03, 0x00, 0xFF, 0xFF, 0x00, 0xFC});

const std::vector<Element> kElements = {{7, {{20, 10}, {180, 10}}},
                                        {7, {{20, 10}, {20, 90}}},
                                        {7, {{20, 10}, {120, 90}}},
                                        {7, {{120, 90}, {130, 20}}},
                                        {3, {{60, 30}, {100, 30}, {80, 60}}}};

}  // namespace

TEST(Slide, DecodesEveryKindOfRecord) {
    ASSERT_EQ(kExample.size(), 86U);
    const auto slide = readSlide(kExample + "trailing bytes");
    ASSERT_TRUE(slide) << slide.error().message();
    EXPECT_EQ(slide->width, 200);
    EXPECT_EQ(slide->height, 100);
    EXPECT_DOUBLE_EQ(slide->aspect, 2.0);
    EXPECT_EQ(slide->elements, kElements);
}

TEST(Slide, BigEndianAndOldHeader) {
    const std::string big =
        kId + bytes({0x56, 0x02, 0x00, 0xC7, 0x00, 0x63, 0x00, 0x2D, 0x31, 0x01, 0x00, 0x02,
                     0x12, 0x34, 0xFF, 0x07, 0x00, 0x14, 0x00, 0x0A, 0x00, 0xB4, 0x00, 0x0A,
                     0xFB, 0x00, 0x00, 0x00, 0x50, 0xFE, 0x64, 0x50, 0xFC, 0x00});
    const auto swapped = readSlide(big);
    ASSERT_TRUE(swapped) << swapped.error().message();
    EXPECT_EQ(swapped->elements, std::vector<Element>(kElements.begin(), kElements.begin() + 3));

    // Aspect 2.0 as a double; the byte order shows only in the end record.
    const std::string old =
        kId + bytes({0x56, 0x01, 0xC7, 0x00, 0x63, 0x00, 0, 0, 0, 0, 0, 0, 0, 0x40, 2, 0, 0}) +
        kExample.substr(31);
    const auto level1 = readSlide(old);
    ASSERT_TRUE(level1) << level1.error().message();
    EXPECT_DOUBLE_EQ(level1->aspect, 2.0);
    EXPECT_EQ(level1->elements, kElements);
}

TEST(Slide, WrongFillCountIsNoMatter) {
    std::string other = kExample;
    other[31 + 2 + 8 + 5 + 3 + 3 + 2 + 2] = 0x04;  // X of the record that opens the polygon
    const auto slide = readSlide(other);
    ASSERT_TRUE(slide) << slide.error().message();
    EXPECT_EQ(slide->elements.back(), kElements.back());
}

TEST(Slide, DamageIsAnErrorAndNeverACrash) {
    for (std::size_t n = 0; n < kExample.size(); ++n)
        EXPECT_FALSE(readSlide(kExample.substr(0, n))) << n;
    std::string unknown = kExample;
    unknown[32] = static_cast<char>(0x90);
    const auto slide = readSlide(unknown);
    ASSERT_FALSE(slide);
    EXPECT_NE(slide.error().text.find("desconhecido"), std::string::npos);
}

TEST(Slide, WhatIsWrittenReadsBack) {
    const Slide slide{399, 299, 4.0 / 3.0, kElements};
    const std::string image = writeSlide(slide);
    EXPECT_EQ(image.substr(23, 4), bytes({0x55, 0x73, 0xCB, 0x00})) << "13,333,333";
    const auto back = readSlide(image);
    ASSERT_TRUE(back) << back.error().message();
    EXPECT_EQ(back->width, 399);
    EXPECT_EQ(back->elements, kElements);
}

TEST(Library, LaysOutDirectoryAndImages) {
    const std::string second = writeSlide({10, 10, 1.0, {}});
    const auto file = writeLibrary({{"secao", kExample}, {"Ip0", second}});
    ASSERT_TRUE(file);
    EXPECT_EQ(file->substr(0, 25), "AutoCAD Slide Library 1.0");
    EXPECT_EQ(file->substr(32, 6), std::string("SECAO\0", 6));
    EXPECT_EQ(file->substr(64, 4), bytes({0x8C, 0, 0, 0}));
    EXPECT_EQ(file->substr(100, 4), bytes({0xE2, 0, 0, 0}));
    const auto back = readLibrary(*file);
    ASSERT_TRUE(back);
    ASSERT_EQ(back->size(), 2U);
    EXPECT_EQ((*back)[0].image, kExample);
    EXPECT_EQ((*back)[1].name, "IP0");
    EXPECT_EQ((*back)[1].image, second);

    EXPECT_TRUE(writeLibrary({{std::string(31, 'x'), kExample}}));
    EXPECT_FALSE(writeLibrary({{std::string(32, 'x'), kExample}}));
    const auto empty = writeLibrary({});
    ASSERT_TRUE(empty);
    EXPECT_TRUE(readLibrary(*empty)->empty());
}

TEST(Library, DamageIsAnErrorAndNeverACrash) {
    const std::string good = *writeLibrary({{"A", kExample}, {"B", kExample}});
    for (std::size_t n = 0; n < 140; ++n)
        EXPECT_FALSE(readLibrary(std::string_view(good).substr(0, n))) << n;
    std::string beyond = good;
    beyond[66] = 0x7F;
    EXPECT_FALSE(readLibrary(beyond));
    // Cut inside the second slide: the first one is still good.
    const auto cut = readLibrary(std::string_view(good).substr(0, good.size() - 1));
    ASSERT_TRUE(cut);
    EXPECT_TRUE(readSlide((*cut)[0].image));
    EXPECT_FALSE(readSlide((*cut)[1].image));
}

TEST(Library, SlidesAreFoundAsProgramsNameThem) {
    namespace fs = std::filesystem;
    std::string name = (fs::temp_directory_path() / "slides(x)XXXXXX").string();
    const fs::path folder = ::mkdtemp(name.data());
    std::ofstream(folder / "pu.slb", std::ios::binary) << *writeLibrary({{"secao", kExample}});
    std::ofstream(folder / "FLECHA.sld", std::ios::binary) << kExample;

    const std::wstring root = folder.wstring() + L"\\";
    EXPECT_TRUE(loadSlide(root + L"pu(secao)"));
    EXPECT_TRUE(loadSlide(root + L"PU(SECAO)"));
    EXPECT_TRUE(loadSlide(root + L"flecha"));
    fs::create_directory(folder / "v1.2");
    fs::copy_file(folder / "FLECHA.sld", folder / "v1.2/FLECHA.sld");
    EXPECT_TRUE(loadSlide(root + L"v1.2\\flecha")) << "a folder's point is no extension";
    EXPECT_FALSE(loadSlide(root + L"pu(ip0)"));
    EXPECT_FALSE(loadSlide(root + L"pz(secao)"));
    EXPECT_FALSE(loadSlide(L""));

    std::ofstream(folder / "pu.slb", std::ios::binary)
        << *writeLibrary({{"ip0", kExample}, {"x", kExample}});
    EXPECT_TRUE(loadSlide(root + L"pu(ip0)")) << "a changed file is read again";
    fs::remove_all(folder);
}
