#include "tests/support/temporary.h"

#include <QFileInfo>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

Temporary::Temporary()
{
    if (!m_directory.isValid())
        throw std::runtime_error("no temporary directory");
}

// The toolkit's own clearing stumbles over names that are no text.
Temporary::~Temporary()
{
    std::error_code ignored;
    fs::remove_all(path().toStdString(), ignored);
}

QByteArray Temporary::path() const
{
    return QFileInfo(m_directory.path()).canonicalFilePath().toUtf8();
}

void Temporary::makeDirectory(const QByteArray& relative) const
{
    fs::create_directories(at(relative).toStdString());
}

void Temporary::write(const QByteArray& relative, const QByteArray& content) const
{
    const fs::path file = at(relative).toStdString();
    fs::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out.write(content.constData(), content.size());
    if (!out.flush())
        throw std::runtime_error("cannot write " + file.string());
}

QByteArray Temporary::read(const QByteArray& relative) const
{
    std::ifstream in(at(relative).toStdString(), std::ios::binary);
    if (!in)
        throw std::runtime_error("cannot read " + at(relative).toStdString());
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(in), {}});
}

bool Temporary::exists(const QByteArray& relative) const
{
    return fs::exists(fs::symlink_status(at(relative).toStdString()));
}
