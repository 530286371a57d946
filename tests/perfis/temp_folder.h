// SPDX-License-Identifier: MIT
// A folder of its own for a test that works with files.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

/// Gone with everything in it at the end of the test.
class TempFolder : public ::testing::Test {
protected:
    TempFolder() {
        std::random_device chance;
        do {
            m_folder =
                std::filesystem::temp_directory_path() / ("perfis_" + std::to_string(chance()));
        } while (!std::filesystem::create_directory(m_folder));
    }
    ~TempFolder() override { std::filesystem::remove_all(m_folder); }

    const std::filesystem::path& folder() const { return m_folder; }
    std::wstring path(std::string_view name) const { return file(name).wstring(); }
    void put(std::string_view name, std::string_view bytes) const {
        std::filesystem::create_directories(file(name).parent_path());
        std::ofstream(file(name), std::ios::binary) << bytes;
    }
    std::string get(std::string_view name) const {
        std::ifstream stream(file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    int fileCount() const {
        return static_cast<int>(std::distance(std::filesystem::directory_iterator(m_folder),
                                              std::filesystem::directory_iterator()));
    }

private:
    /// Names are UTF-8 on every system.
    std::filesystem::path file(std::string_view name) const {
        return m_folder / std::u8string(name.begin(), name.end());
    }

    std::filesystem::path m_folder;
};
