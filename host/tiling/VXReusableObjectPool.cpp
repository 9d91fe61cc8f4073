#include "VXReusableObjectPool.h"

#include <utility>

VXReusableObjectPool::VXReusableObjectPool() = default;

VXReusableObjectPool::~VXReusableObjectPool()
{
    evictReusableObjects();
    for (VXReusableObject *object : m_inUse.keys())
        evict(object);
}

void VXReusableObjectPool::registerReuseIdentifier(qint64 reuseIdentifier, CreationHandler handler)
{
    m_handlers.insert(reuseIdentifier, std::move(handler));
}

VXReusableObject *VXReusableObjectPool::checkOutReusableObjectWithReuseIdentifier(qint64 reuseIdentifier)
{
    QList<VXReusableObject *> &waiting = m_reusable[reuseIdentifier];
    VXReusableObject *object = nullptr;
    if (!waiting.isEmpty()) {
        object = waiting.takeLast();
    } else {
        const CreationHandler handler = m_handlers.value(reuseIdentifier);
        if (!handler)
            qFatal("VXReusableObjectPool: no creation handler for reuse identifier %lld", reuseIdentifier);
        object = handler().release();
        if (m_delegate)
            m_delegate->didCreateReusableObject(this, object);
    }
    m_inUse.insert(object, reuseIdentifier);
    object->prepareForReuse();
    if (m_delegate)
        m_delegate->objectPreparedForReuse(this, object);
    return object;
}

void VXReusableObjectPool::checkInReusableObject(VXReusableObject *object)
{
    const auto it = m_inUse.constFind(object);
    if (it == m_inUse.cend())
        qFatal("VXReusableObjectPool: checking in an object that is not checked out");
    const qint64 reuseIdentifier = it.value();
    m_inUse.erase(it);
    object->becomeReusable();
    if (m_delegate)
        m_delegate->objectBecameReusable(this, object);
    m_reusable[reuseIdentifier].append(object);
}

void VXReusableObjectPool::evictReusableObjects()
{
    const QHash<qint64, QList<VXReusableObject *>> waiting = std::exchange(m_reusable, {});
    for (const QList<VXReusableObject *> &objects : waiting)
        for (VXReusableObject *object : objects)
            evict(object);
}

void VXReusableObjectPool::evict(VXReusableObject *object)
{
    if (m_delegate)
        m_delegate->didEvictReusableObject(this, object);
    m_inUse.remove(object);
    delete object;
}

qsizetype VXReusableObjectPool::numberOfReusableObjects() const
{
    qsizetype count = 0;
    for (const QList<VXReusableObject *> &objects : m_reusable)
        count += objects.size();
    return count;
}
