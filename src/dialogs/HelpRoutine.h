#pragma once
// The help conventions shared by every window: F1 and the Help buttons open
// the help viewer on the window's own page; dialogs close as they do so.

#include <QString>

class QWidget;
class QDialog;

namespace cb {

// The quick start page, opened at a first start and by the main window's popups.
inline constexpr char kQuickStartPage[] = "help002.htm";

// The page the help viewer opens on when it loads (its HelpPage).
const QString& HelpPage();

// Sets the page and shows the help viewer without waiting.
void OpenHelp(const QString& page);

// Hides `dialog`, opens help on `page` and unloads the dialog, which ends
// as if it had been cancelled.
void CloseWithHelp(QDialog& dialog, const QString& page);

// F1 anywhere in `window`: the closing routine for a dialog, else open-only.
void InstallF1(QWidget& window, const QString& page);

}  // namespace cb
