// The baseline of the editors: the toolkit's text widget alone, in a window that can open a file.

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QShortcut>
#include <QTextEdit>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QTextEdit text;
    text.setAcceptRichText(false);
    text.setUndoRedoEnabled(false);
    text.setWindowTitle(QStringLiteral("Bare widget"));
    text.resize(772, 579);
    const QShortcut open(QKeySequence::Open, &text);
    QObject::connect(&open, &QShortcut::activated, &text, [&text] {
        QFile file(
            QFileDialog::getOpenFileName(&text, {}, {}, {}, nullptr, QFileDialog::DontUseNativeDialog));
        if (file.open(QIODevice::ReadOnly))
            text.setPlainText(QString::fromLatin1(file.readAll()));
    });
    text.show();
    return QApplication::exec();
}
