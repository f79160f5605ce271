// Shows the text of one file, plain or RTF, to be read, searched with the eyes, copied, but not changed. Ctrl
// with the wheel, plus, minus and 0 make the letters larger and smaller.
#pragma once

#include "toolkit/richtext/richtext.h"

#include <QTextEdit>

class CodePage;
class FileNumbers;

class RichTextBox : public QTextEdit {
    Q_OBJECT

public:
    RichTextBox(FileNumbers& files, const CodePage& codePage, QWidget* parent = nullptr);

    // Loads the file. Throws what FileNumbers::openBinary does for one that cannot be read, RunTimeError
    // InvalidPropertyValue for one that is too long to be shown; what was shown before stays then.
    void setFileName(const QString& path);
    const QString& fileName() const { return m_fileName; }

    // Returns the whole text without looks, its lines parted by a line feed.
    QString text() const { return plainText(m_text); }

    qreal zoom() const { return m_zoom; }

Q_SIGNALS:
    void fileNameChanged();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void setZoom(qreal zoom);
    void fill();
    void setMargins();

    FileNumbers& m_files;
    const CodePage& m_codePage;
    QString m_fileName;
    RichText m_text;
    qreal m_zoom = 1;
};
