#include "metadata/FieldList.h"

#include "text/UtCStringList.h"

#include <mysql.h>

namespace metadata {
namespace {

struct EngineName
{
    const char* name;
    eTableTypes type;
};

constexpr EngineName engineNames[] = {
    {"MYISAM", TABLE_TYPE_MYISAM},   {"INNODB", TABLE_TYPE_INNODB},       {"BDB", TABLE_TYPE_BDB},
    {"MEMORY", TABLE_TYPE_MEMORY},   {"HEAP", TABLE_TYPE_MEMORY},         {"MERGE", TABLE_TYPE_MERGE},
    {"EXAMPLE", TABLE_TYPE_EXAMPLE}, {"FEDERATED", TABLE_TYPE_FEDERATED}, {"ARCHIVE", TABLE_TYPE_ARCHIVE},
    {"CSV", TABLE_TYPE_CSV},         {"BLACKHOLE", TABLE_TYPE_BLACKHOLE},
};

/// Deletes the first occurrence of a quoted name with its comma, or one at the end. The upper-cased copy of the list is
/// searched and kept in step, as upper-casing keeps every character's position.
void RemoveField(UtCString& list, UtCString& upperList, const UtCString& quotedName)
{
    const UtCString withComma = quotedName + ",";
    int position = upperList.Search(0, withComma);
    int count = withComma.GetLength();
    if (position < 0 && upperList.EndsWith(quotedName, true)) {
        count = quotedName.GetLength();
        position = upperList.GetLength() - count;
    }
    if (position < 0)
        return;
    list.Delete(position, count);
    upperList.Delete(position, count);
}

} // namespace

UtCString FieldList(const CTableCache& entry)
{
    UtCString list;
    for (unsigned long no = 0; no < entry.GetFieldCount(); ++no) {
        list += no == 0 ? "`" : ", `";
        list += entry.GetField(no)->GetName();
        list += "`";
    }
    return list.toUpper();
}

UtCString WithoutFields(const UtCString& list, const UtCString& exclude)
{
    UtCString rest = list.trim(UtCString(", ")); // so that the last name stands at the end
    UtCString upperRest = rest.toUpper();
    UtCStringList names;
    exclude.toUpper().Tokenize(UtCString(","), names);
    for (int i = 0; i < names.GetCount(); ++i) {
        UtCString name = names.item(i).trim(UtCString(" `"));
        if (name.IsEmpty())
            continue;
        name.Enclose(UtCString("`"));
        RemoveField(rest, upperRest, name);
    }
    while (rest.Contains(UtCString("  ")))
        rest = rest.replace(UtCString("  "), UtCString(" "));
    return rest.trim(UtCString(", "));
}

UtCString PrimaryKeyFields(const CTableCache& entry)
{
    UtCString names;
    // KEPT K-24: the names come from the last column to the first.
    for (unsigned long no = entry.GetFieldCount(); no-- > 0;) {
        const CMyField* field = entry.GetField(no);
        if ((field->GetFlags() & PRI_KEY_FLAG) == 0)
            continue;
        if (!names.IsEmpty())
            names += ",";
        names += field->GetName();
    }
    return names;
}

eTableTypes TableTypeOfEngine(const UtCString& engine)
{
    for (const EngineName& known : engineNames)
        if (engine.EqualNoCase(known.name))
            return known.type;
    return TABLE_TYPE_UNKNOWN;
}

} // namespace metadata
