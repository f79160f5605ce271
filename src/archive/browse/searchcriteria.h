// Tells what the search form's boxes hold. The result has no criteria of its own and outlives the form, which
// any turn of the event loop may close: so whoever needs them fetches this at each use from the form's
// default instance, which loads again, hidden, when it was closed, and keeps no reference.
#pragma once

#include <QString>

// Holds what was typed, as it was typed.
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
