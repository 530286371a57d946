// SPDX-License-Identifier: MIT
// Paths of the installation's resources.
#include "perfis/dialogs/installation.h"

#include <gtest/gtest.h>

namespace perfis {
namespace {

TEST(ResourcePaths, AreComposedByConcatenation) {
    EXPECT_EQ(dialogPath(L"C:\\Zp", L"perfis.dcl"), L"C:\\Zp\\Perfis\\perfis.dcl");
    EXPECT_EQ(listPath(L"/opt/zp", L"pu.lst"), L"/opt/zp\\Perfis\\Listas\\pu.lst");
    EXPECT_EQ(slidePath(L"C:\\Zp", L"pu", L"secao"), L"C:\\Zp\\Perfis\\Slides\\pu(secao)");
    EXPECT_EQ(slidePath(L"C:\\Zp", L"", L"FLECHA"), L"C:\\Zp\\Perfis\\Slides\\FLECHA");
}

TEST(ResourcePaths, FitABufferOf512CharactersOrAreNone) {
    const std::wstring folder(511 - std::wstring(L"\\Perfis\\Listas\\pu.lst").size(), L'x');
    ASSERT_TRUE(listPath(folder, L"pu.lst"));
    EXPECT_EQ(listPath(folder, L"pu.lst")->size(), 511u);
    EXPECT_EQ(listPath(folder + L"x", L"pu.lst"), std::nullopt);
}

}  // namespace
}  // namespace perfis
