#pragma once
// A node of the settings tree: typed options with defaults, key-value access by name and key path,
// change notification, and the archive the tree is saved to.

#include <QJsonObject>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <vector>

class TWModule;

class TWSettings : public QObject {
    Q_OBJECT
public:
    enum class Kind { Bool, Int64, Int32, Double, String, Location, Variant, Child };

    struct KeyInfo {
        QString key;
        Kind kind;
    };

    explicit TWSettings(QObject *parent = nullptr);
    ~TWSettings() override;

    // Key-value access. Setting converts losslessly between number types and refuses anything
    // else with a message; a refused value changes nothing.
    QVariant valueForKey(const QString &key) const;
    bool setValueForKey(const QVariant &value, const QString &key, QString *error = nullptr);
    QVariant valueForKeyPath(const QString &keyPath) const;
    bool setValueForKeyPath(const QVariant &value, const QString &keyPath, QString *error = nullptr);
    // The settings object a key path leads to (this one for an empty path), or null.
    TWSettings *settingsForKeyPath(const QString &keyPath);
    // Splits "a.b.key" into the settings object of "a.b" and "key"; null when the path is unknown.
    TWSettings *resolveKeyPath(const QString &keyPath, QString *key);

    // Converts `value` to the key's kind and checks that a row of this object's screen could put
    // it there: a choice row's values, a slider's bounds. Keys that no row edits take any value of
    // their kind. Values from outside the code go through this (the command line, the archive,
    // the screen); code that sets a key directly is trusted with values no row offers.
    bool validateValue(QVariant *value, const QString &key, QString *error = nullptr) const;
    // validateValue, then setValueForKey, for the key at a path below this object.
    bool validateAndSetValueForKeyPath(const QVariant &value, const QString &keyPath, QString *error = nullptr);

    const std::vector<KeyInfo> &keys() const { return m_keys; }
    bool hasKey(const QString &key) const;
    Kind kindOfKey(const QString &key) const;
    TWSettings *childSettings(const QString &key) const;
    QList<TWSettings *> childSettingsList() const;
    // The key path of this object from the root ("" for the root itself).
    QString keyPath() const;

    // The settings object above this one in the tree; null for the root.
    virtual TWSettings *parentSettings() const;
    // Sets every option of this object (not its children) to its default. The base resets every
    // option to false, zero, an empty string or nil; subclasses call it first, then set theirs.
    // Keys the archive leaves out (archiveValueForKey gives nothing) are run-time state that
    // running work shows, not options: the base leaves them alone, so restoring defaults while
    // that work runs keeps what it shows. They start at false, zero, an empty string or nil.
    virtual void setDefaultValues();
    // setDefaultValues on this object and on every object below it.
    void restoreDefaultValuesRecursively();

    // The module describing this object's screen: each class returns its own
    // settingsControllerModule(). Null for objects without a screen.
    virtual std::shared_ptr<TWModule> settingsModule() const { return nullptr; }

    // Copies every option (not child objects) from another object of the same class.
    void copyValuesFrom(const TWSettings &other);

    // The value stored for one key; a null QVariant stores nothing.
    virtual QVariant archiveValueForKey(const QString &key) const;
    // Sets one key from a stored value while the tree is restored; a value that fails
    // validateValue is skipped with a warning.
    virtual void applyArchiveValue(const QVariant &value, const QString &key);

    // The archive of this object and everything below it, keyed by key path from this object.
    QJsonObject archive() const;
    // Applies an archive made by archive(); a value that does not fit its key or its rows is
    // skipped with a warning, the others apply.
    void applyArchive(const QJsonObject &archive);

    // Where the tree's archive is kept; tests and the command line may move it.
    static QString archivePath();
    static void setArchivePath(const QString &path);
    // Writes the whole tree's archive atomically. Called on any node, it saves from the root.
    bool save(QString *error = nullptr) const;
    // Builds a root: creates it (its constructor creates the children), applies defaults to the
    // whole tree, then the saved values.
    template <typename T>
    static T *createSharedInstance()
    {
        T *root = new T;
        root->restoreDefaultValuesRecursively();
        root->loadArchive();
        return root;
    }

    static QString kindName(Kind kind);

Q_SIGNALS:
    // Emitted only when a key's value really changes.
    void valueChanged(const QString &key);

protected:
    void declareKey(const QString &key, Kind kind);
    // Declares a child settings object under `key`; this object owns it.
    void declareChild(const QString &key, TWSettings *child);

    // Typed access for subclasses' accessors.
    bool boolValue(const QString &key) const;
    qint64 int64Value(const QString &key) const;
    double doubleValue(const QString &key) const;
    QString stringValue(const QString &key) const;
    // Sets a declared key, with the same checks as setValueForKey; a wrong type is a programmer
    // error.
    void setValue(const QString &key, const QVariant &value);

private:
    struct Slot;
    const Slot *slot(const QString &key) const;
    Slot *slot(const QString &key);
    void loadArchive();
    // resolveKeyPath, with a message when the path leads nowhere.
    TWSettings *ownerOfKeyPath(const QString &keyPath, QString *key, QString *error);
    void collectArchive(const QString &prefix, QJsonObject *archive) const;

    std::vector<KeyInfo> m_keys;
    std::vector<std::unique_ptr<Slot>> m_slots;
    TWSettings *m_treeParent = nullptr;
};

// Converts a value to the kind of a key: numbers between number kinds when nothing is lost. A text
// is never taken for a number. False with a message otherwise.
bool TWConvertSettingValue(TWSettings::Kind kind, const QVariant &value, QVariant *converted, QString *error);
// Parses a value as typed on a command line ("true", "12", "4.5", "48.85,2.35", "nil").
bool TWParseSettingValue(TWSettings::Kind kind, const QString &text, QVariant *value, QString *error);
// A value as text: numbers in full precision, locations as "lat,lon", nil as "nil".
QString TWSettingValueText(const QVariant &value);
// A location value from latitude and longitude.
QVariant TWLocationValue(double latitude, double longitude);
bool TWLocationFromValue(const QVariant &value, double *latitude, double *longitude);
