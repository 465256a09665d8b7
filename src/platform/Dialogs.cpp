#include "platform/Dialogs.h"

namespace editor {

QString ApplicationTitle() {
    return QStringLiteral("Torvak! level editor");
}

Dialogs& dialogs() {
    static Dialogs set;
    return set;
}

void MsgBox(QWidget* owner, const QString& text, const QString& title) {
    dialogs().messageBox(owner, text, title);
}

} // namespace editor
