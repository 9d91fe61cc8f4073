#pragma once
// A thin RAII layer over one SQLite connection: prepared statements cached per connection, errors
// raised as DatabaseError so that a failed step anywhere inside a transaction unwinds it.

#include <QString>

#include <stdexcept>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace photos::detail {

class DatabaseError : public std::runtime_error {
public:
    explicit DatabaseError(const QString &message) : std::runtime_error(message.toStdString()) {}
    QString message() const { return QString::fromStdString(what()); }
};

class Database;

// A cached statement in use: reset and cleared of bindings when it goes out of scope.
class Statement {
public:
    Statement(Database &database, sqlite3_stmt *statement, bool owned = false);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    Statement &bind(int index, qint64 value);
    Statement &bind(int index, double value);
    Statement &bind(int index, const QString &value);
    Statement &bindNull(int index);
    // True while a row is available; false once the statement is done.
    bool next();
    // Runs a statement that returns no rows.
    void run();

    bool isNull(int column) const;
    qint64 int64(int column) const;
    double real(int column) const;
    QString text(int column) const;

private:
    Database &m_database;
    sqlite3_stmt *m_statement;
    bool m_owned;
};

class Database {
public:
    // Immutable: read-only on a catalogue nobody writes (a read-only library without a write-ahead
    // log), which SQLite then reads without creating its shared-memory file.
    enum Mode { ReadOnly, ReadWrite, Immutable };
    Database(const QString &path, Mode mode);
    ~Database();
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;

    void exec(const char *sql);
    // The statement for this SQL text, prepared on first use. The text must outlive the database
    // (string literals do): statements are cached by its address.
    Statement prepare(const char *sql);
    // A statement built at run time (a chosen sort order): prepared now, finalized after use.
    Statement prepareTransient(const QByteArray &sql);
    qint64 lastInsertId() const;
    int changes() const;

    [[noreturn]] void raise(const QString &what) const;

private:
    sqlite3 *m_db = nullptr;
    std::unordered_map<const char *, sqlite3_stmt *> m_statements;
};

// BEGIN IMMEDIATE on construction; ROLLBACK on destruction unless commit() ran.
class Transaction {
public:
    explicit Transaction(Database &database);
    ~Transaction();
    void commit();

private:
    Database &m_database;
    bool m_done = false;
};

} // namespace photos::detail
