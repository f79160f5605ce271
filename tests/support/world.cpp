#include "tests/support/world.h"

#include "database/connection/connection.h"
#include "database/cursor/recordset.h"
#include "tests/support/testarchive.h"

namespace {

UserDirectories directoriesIn(const Temporary& directory)
{
    for (const char* name : {"home", "disk", "program"})
        directory.makeDirectory(name);
    return {.home = directory.at("home"),
            .config = directory.at("home/.config/Songbin"),
            .state = directory.at("home/.local/state/Songbin"),
            .data = directory.at("home/.local/share/Songbin")};
}

QByteArray declaredIn(const Temporary& directory)
{
    return "D=" + directory.at("disk") + ",ROCK_01\nP=" + directory.at("program");
}

} // namespace

World::World()
    : user(directoriesIn(directory)), drives({.user = user, .declared = declaredIn(directory)}),
      program(QStringLiteral("P:")), files(drives), fileNumbers(drives),
      registry(user.config + "/registry.conf"), settings(user.config + "/settings.conf"),
      store(files, program, user.state), context{{drives, files, registry, settings, launcher, printer,
                                                  dialogs, program},
                                                 fileNumbers,
                                                 store,
                                                 shared,
                                                 windows,
                                                 codePage}
{
}

void World::makeArchive()
{
    createArchive(directory.at("program/Songbin.mdb"));
}

void World::execute(const QString& statement)
{
    Connection connection(drives);
    connection.open(store.ownConnectionText());
    connection.execute(statement);
    connection.close();
}

QStringList World::archiveRows()
{
    Connection connection(drives);
    connection.open(store.ownConnectionText());
    Recordset records;
    records.open(QStringLiteral("SELECT * FROM MP3"), connection);
    QStringList rows;
    for (; !records.eof(); records.moveNext()) {
        QStringList values;
        for (int column = 0; column < records.fieldNames().size(); ++column)
            values += records.value(column).value_or(QStringLiteral("(null)"));
        rows += values.join(u'|');
    }
    return rows;
}

QStringList World::songs(const QStringList& names) const
{
    QStringList paths;
    for (const QString& name : names) {
        directory.write("disk/" + name.toUtf8(), QByteArray(300, 'x'));
        paths += QStringLiteral("D:\\") + QString(name).replace(u'/', u'\\');
    }
    return paths;
}
