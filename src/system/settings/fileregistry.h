// Keeps the registry as a text file. A section is a root and a key path,
// "HKEY_LOCAL_MACHINE\SOFTWARE\Songbin"; a line is a value's name and its data by type: "sz:text",
// "dword:12345", "hex:0aff" (binary), "hex(7):6100" (any other type by its number). A line of another form
// reads as missing. A key exists as long as it has a value.
#pragma once

#include "platform/registry.h"
#include "system/settings/keyvaluefile.h"

class FileRegistry : public Registry {
public:
    explicit FileRegistry(const QByteArray& file) : m_place(QString::fromLocal8Bit(file)), m_file(file) {}

    std::optional<RegistryValue> query(RootKey root, const QString& key, const QString& name) override;
    bool wasRead(RootKey root, const QString& key, const QString& name) const override;
    QString file() const override { return m_place; }
    bool set(RootKey root, const QString& key, const QString& name, const RegistryValue& value) override;
    bool remove(RootKey root, const QString& key, const QString& name) override;

private:
    QString m_place;
    KeyValueFile m_file;
};
