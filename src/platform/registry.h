// Is the machine-wide store of typed values under keys, kept in a text file of the user's configuration
// directory. Key paths and value names ignore case; a trailing "\" of a key path does not matter.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

enum class RootKey { LocalMachine, CurrentUser };

enum RegistryType : int { kRegSz = 1, kRegBinary = 3, kRegDword = 4 };

struct RegistryValue {
    int type;
    QString text;     // of a string
    QByteArray bytes; // of everything else; a number's four bytes, lowest first

    // The reader is told this: bytes, and of a string its characters and one terminating zero, whether or not
    // the writer stored one.
    qsizetype length() const { return type == kRegSz ? text.size() + 1 : bytes.size(); }
};

class Registry {
public:
    virtual ~Registry() = default;

    // Gives nothing when the key or the value is missing or the store cannot be read; it creates nothing.
    virtual std::optional<RegistryValue> query(RootKey root, const QString& key, const QString& name) = 0;
    // Is false when the store could not be read when that value was last asked for.
    virtual bool wasRead(RootKey root, const QString& key, const QString& name) const = 0;
    virtual QString file() const = 0; // where a person finds it, as a path of this machine
    // A string's trailing zero characters are not stored. It is false when the store could not be written, or
    // could not be read when that value was last asked for: the old value stays. The value is on the disk
    // when this returns.
    virtual bool set(RootKey root, const QString& key, const QString& name, const RegistryValue& value) = 0;
    // Is false when the store could not be written, and true for a value that is not there.
    virtual bool remove(RootKey root, const QString& key, const QString& name) = 0;
};
