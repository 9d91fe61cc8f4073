#include "FetchQuery.h"

#include "Catalogue.h"
#include "PhotosLogging.h"
#include "VHPhotoLibrary.h"

namespace photos::detail {

QVector<qint64> runFetch(VHPhotoLibrary &library, const FetchQuery &query, const VHFetchOptions &options,
                         const SortColumn *columns, size_t columnCount)
{
    QByteArray sql = query.select;
    for (qsizetype i = 0; i < query.conditions.size(); ++i)
        sql += (i == 0 ? " WHERE " : " AND ") + query.conditions[i];
    QList<QByteArray> order;
    for (const VHSortDescriptor &descriptor : options.sortDescriptors()) {
        const SortColumn *column = std::find_if(columns, columns + columnCount, [&](const SortColumn &candidate) {
            return descriptor.key == QLatin1String(candidate.key);
        });
        if (column == columns + columnCount)
            qFatal("VHFetchOptions: cannot sort by unknown key '%s'", qPrintable(descriptor.key));
        order.append(QByteArray(column->column) + (descriptor.ascending ? " ASC" : " DESC"));
    }
    if (order.isEmpty())
        order.append(query.defaultOrder);
    else
        order.append(query.tieBreaker + (options.sortDescriptors().last().ascending ? " ASC" : " DESC"));
    sql += " ORDER BY " + order.join(", ");
    if (options.fetchLimit() > 0)
        sql += " LIMIT " + QByteArray::number(options.fetchLimit());

    QVector<qint64> ids;
    try {
        library.catalogue().read([&](Database &database) {
            Statement statement = database.prepareTransient(sql);
            for (qsizetype i = 0; i < query.bindings.size(); ++i) {
                if (const auto *number = std::get_if<qint64>(&query.bindings[i]))
                    statement.bind(int(i + 1), *number);
                else
                    statement.bind(int(i + 1), std::get<QString>(query.bindings[i]));
            }
            while (statement.next())
                ids.append(statement.int64(0));
            return 0;
        });
    } catch (const DatabaseError &failure) {
        qCWarning(lcPhotos).noquote() << "fetch failed:" << failure.message();
        ids.clear();
    }
    return ids;
}

} // namespace photos::detail
