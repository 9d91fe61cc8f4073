#pragma once
// A keyed pool of reusable objects. Checking out takes an object of a reuse identifier from the
// pool, or makes one with the identifier's creation handler; checking in returns it. The pool
// owns every object it made, checked out or not, until it evicts it.
//
// Its delegate hears, in this order over an object's life: didCreateReusableObject when it is
// made; objectPreparedForReuse on every check-out (after the object's own prepareForReuse);
// objectBecameReusable on every check-in (after its becomeReusable); didEvictReusableObject
// just before the pool deletes it.

#include "VXTilingProtocols.h"

#include <QHash>
#include <QList>

#include <functional>
#include <memory>

class VXReusableObjectPool;

class VXReusableObjectPoolDelegate {
public:
    virtual ~VXReusableObjectPoolDelegate() = default;
    virtual void didCreateReusableObject(VXReusableObjectPool *pool, VXReusableObject *object) {}
    virtual void objectPreparedForReuse(VXReusableObjectPool *pool, VXReusableObject *object) {}
    virtual void objectBecameReusable(VXReusableObjectPool *pool, VXReusableObject *object) {}
    virtual void didEvictReusableObject(VXReusableObjectPool *pool, VXReusableObject *object) {}
};

class VXReusableObjectPool {
public:
    using CreationHandler = std::function<std::unique_ptr<VXReusableObject>()>;

    VXReusableObjectPool();
    // Evicts every object, checked out or not: check them in first.
    ~VXReusableObjectPool();
    VXReusableObjectPool(const VXReusableObjectPool &) = delete;
    VXReusableObjectPool &operator=(const VXReusableObjectPool &) = delete;

    VXReusableObjectPoolDelegate *delegate() const { return m_delegate; }
    void setDelegate(VXReusableObjectPoolDelegate *delegate) { m_delegate = delegate; }

    void registerReuseIdentifier(qint64 reuseIdentifier, CreationHandler handler);
    // An unregistered identifier is a programming error.
    VXReusableObject *checkOutReusableObjectWithReuseIdentifier(qint64 reuseIdentifier);
    // An object this pool did not hand out is a programming error.
    void checkInReusableObject(VXReusableObject *object);
    // Evicts every object waiting in the pool (not those checked out).
    void evictReusableObjects();

    qsizetype numberOfReusableObjects() const;
    qsizetype numberOfObjectsInUse() const { return m_inUse.size(); }

private:
    void evict(VXReusableObject *object);

    VXReusableObjectPoolDelegate *m_delegate = nullptr;
    QHash<qint64, CreationHandler> m_handlers;
    QHash<qint64, QList<VXReusableObject *>> m_reusable;
    // Checked-out objects with their reuse identifiers.
    QHash<VXReusableObject *, qint64> m_inUse;
};
