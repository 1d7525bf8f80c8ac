#include "metadata/FieldList.h"

#include "text/TextBuilder.h"
#include "text/TextSearch.h"

#include <mysql.h>

#include <algorithm>
#include <vector>

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

using text::Tagged;

// Names are searched for in place: a copy for which there is no memory would leave a column in the list.

Tagged Trimmed(Tagged text, const char* set)
{
    const Tagged characters{set, UT_ENCODING_DEFAULT};
    text.bytes = text.bytes.substr(0, text::TrailingBegin(text, characters));
    text.bytes.remove_prefix(text::LeadingEnd(text, characters));
    return text;
}

std::vector<Tagged> SplitAtCommas(const UtCString& list)
{
    const Tagged whole{list.View(), list.GetEncodingType()};
    const Tagged comma{",", UT_ENCODING_DEFAULT};
    std::vector<Tagged> items;
    size_t begin = 0;
    for (text::Match found; (found = text::Find(whole, begin, comma, text::LetterCase::Exact)).IsFound();) {
        items.push_back({whole.bytes.substr(begin, found.begin - begin), whole.encoding});
        begin = found.end;
    }
    items.push_back({whole.bytes.substr(begin), whole.encoding});
    return items;
}

/// Takes `prefix` away from the beginning of the text; false when it does not begin so.
bool Skip(Tagged& text, Tagged prefix)
{
    const size_t size = text::PrefixSize(text, prefix, text::LetterCase::Ignored);
    if (size == text::notFound)
        return false;
    text.bytes.remove_prefix(size);
    return true;
}

/// Whether an item of a list is exactly the name in backticks.
bool IsField(Tagged item, Tagged name)
{
    const Tagged backtick{"`", UT_ENCODING_DEFAULT};
    item = Trimmed(item, " ");
    return Skip(item, backtick) && Skip(item, name) && Skip(item, backtick) && item.bytes.empty();
}

UtCString JoinWithCommas(const std::vector<Tagged>& items, eUtEncodingType encoding)
{
    text::TextBuilder list(encoding);
    for (size_t no = 0; no < items.size(); ++no) {
        list.Append(no == 0 ? "" : ",", UT_ENCODING_DEFAULT);
        list.Append(items[no].bytes);
    }
    return list.Take();
}

} // namespace

UtCString FieldList(const CTableCache& entry)
{
    text::TextBuilder list(UT_ENCODING_DEFAULT);
    for (unsigned long no = 0; no < entry.GetFieldCount(); ++no) {
        list.Append(no == 0 ? "`" : ", `");
        list.AppendText(entry.GetField(no)->GetName());
        list.Append("`");
    }
    return list.Take().toUpper();
}

UtCString WithoutFields(const UtCString& list, const UtCString& exclude)
{
    std::vector<Tagged> items = SplitAtCommas(list);
    for (const Tagged& excluded : SplitAtCommas(exclude)) {
        const Tagged name = Trimmed(excluded, " `");
        const auto found = std::find_if(items.begin(), items.end(), [&](Tagged item) { return IsField(item, name); });
        if (!name.bytes.empty() && found != items.end())
            items.erase(found);
    }
    UtCString rest = JoinWithCommas(items, list.GetEncodingType());
    while (rest.Contains("  "))
        rest = rest.replace("  ", " ");
    return rest.trim(", ");
}

UtCString PrimaryKeyFields(const CTableCache& entry)
{
    text::TextBuilder names(UT_ENCODING_DEFAULT);
    const char* separator = "";
    // KEPT K-24: the names come from the last column to the first.
    for (unsigned long no = entry.GetFieldCount(); no-- > 0;) {
        const CMyField* field = entry.GetField(no);
        if ((field->GetFlags() & PRI_KEY_FLAG) == 0)
            continue;
        names.Append(separator);
        names.AppendText(field->GetName());
        separator = ",";
    }
    return names.Take();
}

eTableTypes TableTypeOfEngine(const UtCString& engine)
{
    for (const EngineName& known : engineNames)
        if (engine.EqualNoCase(known.name))
            return known.type;
    return TABLE_TYPE_UNKNOWN;
}

} // namespace metadata
