// SPDX-License-Identifier: MIT
// Mouse and keyboard at dialogs.
#include "dialogs_hands.h"

#include <QApplication>
#include <QListView>
#include <QTest>
#include <QTimer>

#include <stdexcept>

#include "prancheta/dcl/dialog.h"
#include "prancheta/desktop/dialogs/run_dialog.h"

namespace dialogtest {

using namespace prancheta;

RawInput HandUi::ask(const InputRequest&) {
    RawInput input;
    if (lines.empty()) return input;
    input.kind = RawInput::Kind::Text;
    input.text = std::move(lines.front());
    lines.pop_front();
    return input;
}

void HandUi::runDialog(dcl::Dialog& dialog) {
    QTimer::singleShot(0, &m_parent, [this, &dialog] {
        auto* window = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (window == nullptr) return dialog.abandon();
        (void)QTest::qWaitForWindowExposed(window);
        window->activateWindow();
        if (hand) hand(*window);
        if (dialog.finished()) return;
        leftOpen.push_back(dialog.name());
        dialog.abandon();
        window->reject();
        window->done(0);
    });
    desktop::runDialog(dialog, &m_parent);
}

HostOptions hostOn(const std::filesystem::path& folder) {
    namespace fs = std::filesystem;
    const fs::path build = HOUSE_BINARY_DIR;
    fs::create_directories(folder);
    fs::copy(build / "instalacao", folder,
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    HostOptions options;
    options.programFolder = build / "bin";
    options.installation = folder;
    options.installationOverrides = true;
    return options;
}

QWidget& tile(QDialog& dialog, const char* key) {
    auto* widget = dialog.findChild<QWidget*>(QString::fromLatin1(key));
    if (widget == nullptr) throw std::runtime_error(std::string("no widget for tile ") + key);
    return *widget;
}

void press(QDialog& dialog, const char* key) {
    QTest::mouseClick(&tile(dialog, key), Qt::LeftButton);
}

void pick(QDialog& dialog, const char* key, int row) {
    auto& list = dynamic_cast<QListView&>(tile(dialog, key));
    const QModelIndex index = list.model()->index(row, 0);
    list.scrollTo(index);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(index).center());
}

void retype(QDialog& dialog, const char* key, const char* text) {
    QWidget& edit = tile(dialog, key);
    QTest::mouseClick(&edit, Qt::LeftButton);
    QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&edit, QString::fromUtf8(text));
}

}  // namespace dialogtest
