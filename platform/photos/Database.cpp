#include "Database.h"

#include <QUrl>

#include <sqlite3.h>

namespace photos::detail {

Statement::Statement(Database &database, sqlite3_stmt *statement, bool owned)
    : m_database(database), m_statement(statement), m_owned(owned)
{
}

Statement::~Statement()
{
    if (m_owned) {
        sqlite3_finalize(m_statement);
        return;
    }
    sqlite3_reset(m_statement);
    sqlite3_clear_bindings(m_statement);
}

Statement &Statement::bind(int index, qint64 value)
{
    if (sqlite3_bind_int64(m_statement, index, value) != SQLITE_OK)
        m_database.raise(QStringLiteral("bind"));
    return *this;
}

Statement &Statement::bind(int index, double value)
{
    if (sqlite3_bind_double(m_statement, index, value) != SQLITE_OK)
        m_database.raise(QStringLiteral("bind"));
    return *this;
}

Statement &Statement::bind(int index, const QString &value)
{
    const QByteArray utf8 = value.toUtf8();
    if (sqlite3_bind_text(m_statement, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT) != SQLITE_OK)
        m_database.raise(QStringLiteral("bind"));
    return *this;
}

Statement &Statement::bindNull(int index)
{
    if (sqlite3_bind_null(m_statement, index) != SQLITE_OK)
        m_database.raise(QStringLiteral("bind"));
    return *this;
}

bool Statement::next()
{
    const int status = sqlite3_step(m_statement);
    if (status == SQLITE_ROW)
        return true;
    if (status == SQLITE_DONE)
        return false;
    m_database.raise(QString::fromUtf8(sqlite3_sql(m_statement)));
}

void Statement::run()
{
    while (next()) {
    }
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

qint64 Statement::int64(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

double Statement::real(int column) const
{
    return sqlite3_column_double(m_statement, column);
}

QString Statement::text(int column) const
{
    const auto *chars = reinterpret_cast<const char *>(sqlite3_column_text(m_statement, column));
    return QString::fromUtf8(chars, sqlite3_column_bytes(m_statement, column));
}

Database::Database(const QString &path, Mode mode)
{
    int flags = (mode == ReadWrite ? SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE : SQLITE_OPEN_READONLY)
        | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_NOFOLLOW;
    QByteArray name = path.toUtf8();
    if (mode == Immutable) {
        flags |= SQLITE_OPEN_URI;
        name = "file:" + QUrl::toPercentEncoding(path, "/") + "?immutable=1";
    }
    if (sqlite3_open_v2(name.constData(), &m_db, flags, nullptr) != SQLITE_OK) {
        const QString message = m_db ? QString::fromUtf8(sqlite3_errmsg(m_db)) : QStringLiteral("out of memory");
        sqlite3_close(m_db);
        m_db = nullptr;
        throw DatabaseError(QStringLiteral("cannot open catalogue %1: %2").arg(path, message));
    }
    // Another connection may hold the write lock for a moment (a change committing).
    sqlite3_busy_timeout(m_db, 10000);
}

Database::~Database()
{
    for (auto &entry : m_statements)
        sqlite3_finalize(entry.second);
    sqlite3_close(m_db);
}

void Database::exec(const char *sql)
{
    char *message = nullptr;
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, &message) != SQLITE_OK) {
        const QString text = QString::fromUtf8(message ? message : "unknown error");
        sqlite3_free(message);
        throw DatabaseError(QStringLiteral("catalogue error: %1").arg(text));
    }
}

Statement Database::prepare(const char *sql)
{
    auto found = m_statements.find(sql);
    if (found == m_statements.end()) {
        sqlite3_stmt *statement = nullptr;
        if (sqlite3_prepare_v3(m_db, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr) != SQLITE_OK)
            raise(QString::fromUtf8(sql));
        found = m_statements.emplace(sql, statement).first;
    }
    return Statement(*this, found->second);
}

Statement Database::prepareTransient(const QByteArray &sql)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(m_db, sql.constData(), int(sql.size()), &statement, nullptr) != SQLITE_OK)
        raise(QString::fromUtf8(sql));
    return Statement(*this, statement, true);
}

qint64 Database::lastInsertId() const
{
    return sqlite3_last_insert_rowid(m_db);
}

int Database::changes() const
{
    return sqlite3_changes(m_db);
}

void Database::raise(const QString &what) const
{
    throw DatabaseError(QStringLiteral("catalogue error: %1 (%2)").arg(QString::fromUtf8(sqlite3_errmsg(m_db)), what));
}

Transaction::Transaction(Database &database) : m_database(database)
{
    m_database.exec("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (!m_done) {
        try {
            m_database.exec("ROLLBACK");
        } catch (const DatabaseError &) {
            // SQLite already rolled back on its own (a full disk or I/O error does that).
        }
    }
}

void Transaction::commit()
{
    m_database.exec("COMMIT");
    m_done = true;
}

} // namespace photos::detail
