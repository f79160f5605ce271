// What the search form's boxes hold; its default instance serves it, loaded again, hidden, when it was
// closed.
#pragma once

#include <QString>

// As typed.
struct Criteria {
    QString artist;
    QString path;
    QString song;
    QString diskName;
    QString album;
    QString year;
    QString comment;
    QString extension;
};

class SearchCriteria {
public:
    virtual ~SearchCriteria() = default;

    virtual bool combinesWithAnd() const = 0; // else with OR
    virtual Criteria criteria() const = 0;
    // In an OR an empty criterion would fit every row: its box gets the sign that no value holds, and is
    // emptied again.
    virtual void markEmptyBoxes() = 0;
    virtual void emptyMarkedBoxes() = 0;
};
