// Looks for a text in slices, so that the window stays alive, and goes from hit to hit, round and round.
#pragma once

#include "toolkit/pages/textfinder.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <optional>

class PageSearch : public QObject {
    Q_OBJECT

public:
    explicit PageSearch(QObject* parent = nullptr);

    // The report must outlive the search. The first hit in or behind that row becomes the current one, else
    // the first of all. An empty text ends the search.
    void begin(const Report& report, const QString& text, int fromRow);
    void end();

    void goOn(int direction); // to the next hit, or the previous one

    const QString& text() const { return m_text; }
    const TextFinder* finder() const { return m_finder.get(); }
    std::optional<TextFinder::Hit> current() const;
    QString foundText() const; // "12 of 340"

Q_SIGNALS:
    void counted();
    void currentChanged();

private:
    void work();
    void settle();

    QTimer m_slices;
    QString m_text;
    std::unique_ptr<TextFinder> m_finder;
    int m_fromRow = 0;
    std::int64_t m_current = -1; // none yet
};
