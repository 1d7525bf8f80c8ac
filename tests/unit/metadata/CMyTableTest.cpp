#include "CMyTable.h"

#include "unit/metadata/MetadataFixture.h"

#include <cstdint>

namespace {

using namespace metadata_test;

const char* const statusOfOrders = "SHOW TABLE STATUS FROM shop LIKE 'ORDERS'";

class TableHandle : public MetadataFixture
{
protected:
    TableHandle() : m_database(Settings(), "shop") { OpenQuietly(m_database); }

    void TearDown() override
    {
        m_database.Close();
        MetadataFixture::TearDown();
    }

    CMyTable TableOf(std::vector<fake::Field> fields)
    {
        m_client.OnListFields("T", std::move(fields));
        return CMyTable(&m_database, "t");
    }

    CMyTable Orders() { return CMyTable(&m_database, "orders"); }
    CMyTable Unknown() { return CMyTable(&m_database, "unknown"); }

    CMyDatabase m_database;
};

// ---------------------------------------------------------------------------------------------------------------
// Creation and copies

TEST_F(TableHandle, LoadsItsTableWhenItIsCreated)
{
    const CMyTable table = Orders();
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", statusOfOrders}));
    EXPECT_TRUE(table.IsValid());
    const CMyTable second = Orders();
    EXPECT_TRUE(second.IsValid());
    EXPECT_EQ(TakeTraffic(), Traffic{});
}

TEST_F(TableHandle, AnswersFromTheCacheWithoutAskingTheServer)
{
    const CMyTable table = Orders();
    m_client.ForgetCalls();
    unsigned long no = 0;
    unsigned int nr = 0;
    table.GetFieldCount();
    table.GetFieldNo("id", no);
    table.GetFieldType("id");
    table.GetFieldTypeString("id");
    table.GetFieldSize("id");
    table.GetFieldCharsetNr("id", nr);
    table.GetFields("id");
    table.GetPrimaryKeyFieldName();
    table.GetTableType();
    table.SupportTransaction();
    EXPECT_TRUE(m_client.Calls().empty());
}

TEST_F(TableHandle, KeepsItsNameAsPassed)
{
    EXPECT_EQ(Text(CMyTable(&m_database, " `Orders` ").GetTableName()), " `Orders` ");
    EXPECT_EQ(Text(CMyTable(&m_database, "unknown").GetTableName()), "unknown");
}

TEST_F(TableHandle, HasTheEncodingOfItsConnection)
{
    EXPECT_EQ(Orders().GetEncodingType(), UT_ENCODING_DEFAULT);
    CMyDatabase utf8(Settings("utf8mb4"), "shop");
    EXPECT_EQ(CMyTable(&utf8, "orders").GetEncodingType(), UT_ENCODING_UTF8);
    EXPECT_EQ(CMyTable(nullptr, "orders").GetEncodingType(), UT_ENCODING_DEFAULT);
}

TEST_F(TableHandle, ACopySharesTheEntry)
{
    const CMyTable table = Orders();
    const CMyTable copy(table);
    CMyTable assigned(nullptr, "");
    assigned = table;
    for (const CMyTable* other : {&copy, const_cast<const CMyTable*>(&assigned)}) {
        EXPECT_TRUE(other->IsValid());
        EXPECT_EQ(Text(other->GetTableName()), "orders");
        EXPECT_EQ(other->GetField(0UL), table.GetField(0UL));
    }
}

TEST_F(TableHandle, SurvivesAssignmentToItself)
{
    CMyTable table = Orders();
    const CMyTable& itself = table;
    table = itself;
    EXPECT_TRUE(table.IsValid());
    EXPECT_EQ(Text(table.GetTableName()), "orders");
}

TEST_F(TableHandle, WithoutAConnectionKnowsOnlyWhatTheCacheHas)
{
    EXPECT_FALSE(CMyTable(nullptr, "orders").IsValid());
    Orders();
    EXPECT_TRUE(CMyTable(nullptr, "orders").IsValid());
}

TEST_F(TableHandle, LeavesTheReasonOfAFailedLoadOnTheConnection)
{
    EXPECT_FALSE(Unknown().IsValid());
    EXPECT_EQ(m_database.GetErrorCode(), 1146U);
}

// ---------------------------------------------------------------------------------------------------------------
// Columns

TEST_F(TableHandle, CountsItsColumns)
{
    EXPECT_EQ(Orders().GetFieldCount(), 3);
}

TEST_F(TableHandle, FindsColumnsInAnyLetterCase)
{
    const CMyTable table = Orders();
    unsigned long no = 77;
    EXPECT_TRUE(table.GetFieldNo("NAME", no));
    EXPECT_EQ(no, 1U);
    EXPECT_TRUE(table.GetFieldNo("price", no));
    EXPECT_EQ(no, 2U);
    EXPECT_TRUE(table.ExistField("iD"));
}

TEST_F(TableHandle, FindsNeitherEmptyNorUnknownNorQuotedColumns)
{
    const CMyTable table = Orders();
    for (const char* name : {"", "no", " id", "`id`"}) {
        unsigned long no = 77;
        unsigned int nr = 77;
        EXPECT_FALSE(table.GetFieldNo(name, no)) << name;
        EXPECT_EQ(no, 77U) << name;
        EXPECT_FALSE(table.ExistField(name)) << name;
        EXPECT_EQ(table.GetField(UtCString(name)), nullptr) << name;
        EXPECT_EQ(table.GetFieldType(name), MYTYPE_UNKNOWN) << name;
        EXPECT_EQ(Text(table.GetFieldTypeString(name)), "fehler!") << name;
        EXPECT_EQ(table.GetFieldSize(name), 0) << name;
        EXPECT_FALSE(table.GetFieldCharsetNr(name, nr)) << name;
        EXPECT_EQ(nr, 77U) << name;
    }
}

TEST_F(TableHandle, DescribesAColumnByNameAndByPosition)
{
    const CMyTable table = Orders();
    const CMyField* field = table.GetField(UtCString("name"));
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field, table.GetField(1UL));
    EXPECT_EQ(Text(field->GetName()), "Name");
    EXPECT_EQ(Text(field->GetDefault()), "Muster");
    EXPECT_EQ(table.GetField(3UL), nullptr);
    EXPECT_EQ(table.GetField(4294967295UL), nullptr);
}

TEST_F(TableHandle, GivesAColumnsNameByPosition)
{
    const CMyTable table = Orders();
    EXPECT_EQ(Text(table.GetFieldName(0)), "id");
    EXPECT_EQ(Text(table.GetFieldName(1)), "Name");
    EXPECT_EQ(Text(table.GetFieldName(3)), "");
    EXPECT_EQ(Text(table.GetFieldName(4294967295UL)), "");
}

TEST_F(TableHandle, GivesTypeSizeAndCharacterSetOfAColumn)
{
    const CMyTable table = Orders();
    unsigned int nr = 0;
    EXPECT_EQ(table.GetFieldType("name"), MYTYPE_TEXT);
    EXPECT_EQ(Text(table.GetFieldTypeString("name")), "varchar[60]");
    EXPECT_EQ(table.GetFieldSize("name"), 60);
    EXPECT_TRUE(table.GetFieldCharsetNr("name", nr));
    EXPECT_EQ(nr, 33U);
    EXPECT_EQ(table.GetFieldType("id"), MYTYPE_LONG);
    EXPECT_EQ(Text(table.GetFieldTypeString("id")), "long");
    EXPECT_EQ(table.GetFieldSize("id"), 11);
}

TEST_F(TableHandle, LeavesADecimalColumnUnclassified)
{
    const CMyTable table(&m_database, "prices");
    EXPECT_TRUE(table.ExistField("price"));
    EXPECT_EQ(table.GetFieldType("price"), MYTYPE_UNKNOWN);
    EXPECT_EQ(Text(table.GetFieldTypeString("price")), "unbekannt");
}

TEST_F(TableHandle, GivesTheSizeAsASigned32BitNumber)
{
    const CMyTable table = TableOf({{.name = "most", .length = 2147483647UL},
                                    {.name = "medium", .length = 16777215UL},
                                    {.name = "longtext", .length = 4294967295UL}});
    EXPECT_EQ(table.GetFieldSize("most"), INT32_MAX);
    EXPECT_EQ(table.GetFieldSize("medium"), 16777215);
    EXPECT_EQ(table.GetFieldSize("longtext"), -1);
    EXPECT_EQ(table.GetField(2UL)->GetLength(), 4294967295U);
}

// ---------------------------------------------------------------------------------------------------------------
// Lists

TEST_F(TableHandle, ListsItsColumnsInUpperCaseAndBackticks)
{
    EXPECT_EQ(Text(Orders().GetFields("")), "`ID`, `NAME`, `PRICE`");
}

TEST_F(TableHandle, LeavesExcludedColumnsOutOfTheList)
{
    EXPECT_EQ(Text(Orders().GetFields("name")), "`ID`, `PRICE`");
    EXPECT_EQ(Text(Orders().GetFields(" `PRICE`, id ")), "`NAME`");
    EXPECT_EQ(Text(Orders().GetFields("id,name,price")), "");
    EXPECT_EQ(Text(Orders().GetFields("no")), "`ID`, `NAME`, `PRICE`");
}

TEST_F(TableHandle, LeavesItsListAsItIsWhenNothingIsExcluded)
{
    const CMyTable table = TableOf({{.name = "a  b"}, {.name = "c"}});
    EXPECT_EQ(Text(table.GetFields("")), "`A  B`, `C`");
    EXPECT_EQ(Text(table.GetFields("c")), "`A B`") << "an exclusion reduces every run of blanks";
}

TEST_F(TableHandle, RemovesColumnsFromAnyListAlsoWhenItIsInvalid)
{
    EXPECT_EQ(Text(Orders().RemoveFieldsFromFieldList("`X`, `Y`, `Z`", "y")), "`X`, `Z`");
    EXPECT_EQ(Text(Unknown().RemoveFieldsFromFieldList("`X`, `Y`, `Z`", "z")), "`X`, `Y`");
}

TEST_F(TableHandle, NamesItsPrimaryKey)
{
    EXPECT_EQ(Text(Orders().GetPrimaryKeyFieldName()), "id");
}

TEST_F(TableHandle, NamesACompositePrimaryKeyInReverseColumnOrder)
{
    const CMyTable table =
        TableOf({{.name = "a", .flags = PRI_KEY_FLAG}, {.name = "b", .flags = PRI_KEY_FLAG}, {.name = "c"}});
    EXPECT_EQ(Text(table.GetPrimaryKeyFieldName()), "b,a");
}

TEST_F(TableHandle, NamesNoPrimaryKeyWhereThereIsNone)
{
    EXPECT_EQ(Text(TableOf({{.name = "a"}}).GetPrimaryKeyFieldName()), "");
}

TEST_F(TableHandle, KnowsItsEngine)
{
    EXPECT_EQ(Orders().GetTableType(), TABLE_TYPE_INNODB);
    EXPECT_TRUE(Orders().SupportTransaction());
    m_client.Once("SHOW TABLE STATUS FROM shop LIKE 'ITEMS'", fake::Reply::Rows({"Engine"}, {{"Heap"}}));
    const CMyTable heap(&m_database, "items");
    EXPECT_EQ(static_cast<unsigned>(heap.GetTableType()), 4U);
    EXPECT_FALSE(heap.SupportTransaction());
    m_client.Once("SHOW TABLE STATUS FROM shop LIKE 'PRICES'", fake::Reply::Rows({"Engine"}, {{"Aria"}}));
    EXPECT_EQ(static_cast<unsigned>(CMyTable(&m_database, "prices").GetTableType()), 0U);
}

TEST_F(TableHandle, AnswersEveryQuestionNegativelyWhenItsTableIsUnknown)
{
    const CMyTable table = Unknown();
    unsigned long no = 77;
    unsigned int nr = 77;
    EXPECT_FALSE(table.IsValid());
    EXPECT_EQ(table.GetFieldCount(), 0);
    EXPECT_FALSE(table.GetFieldNo("id", no));
    EXPECT_EQ(no, 77U);
    EXPECT_FALSE(table.ExistField("id"));
    EXPECT_EQ(table.GetField(UtCString("id")), nullptr);
    EXPECT_EQ(table.GetField(0UL), nullptr);
    EXPECT_EQ(Text(table.GetFieldName(0)), "");
    EXPECT_EQ(table.GetFieldType("id"), MYTYPE_UNKNOWN);
    EXPECT_EQ(Text(table.GetFieldTypeString("id")), "fehler!");
    EXPECT_EQ(table.GetFieldSize("id"), 0);
    EXPECT_FALSE(table.GetFieldCharsetNr("id", nr));
    EXPECT_EQ(Text(table.GetFields("")), "");
    EXPECT_EQ(Text(table.GetFields("id")), "");
    EXPECT_EQ(Text(table.GetPrimaryKeyFieldName()), "");
    EXPECT_EQ(table.GetTableType(), TABLE_TYPE_UNKNOWN);
    EXPECT_FALSE(table.SupportTransaction());
}

// ---------------------------------------------------------------------------------------------------------------
// The handle and the cache

TEST_F(TableHandle, GoesOnDescribingATableThatTheCacheHasDropped)
{
    const CMyTable table = Orders();
    const CMyField* field = table.GetField(0UL);
    m_cache.RemoveAll();
    EXPECT_TRUE(table.IsValid());
    EXPECT_EQ(Text(field->GetName()), "id");
    EXPECT_EQ(table.GetFieldCount(), 3);
}

TEST_F(TableHandle, RegisteringAValidHandleAsksNothing)
{
    CMyTable table = Orders();
    m_cache.RemoveAll();
    m_client.ForgetCalls();
    EXPECT_TRUE(table.RegisterTable(false));
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(TableHandle, RegisteringAnInvalidHandleLoadsTheTable)
{
    CMyTable table = Unknown();
    m_client.OnListFields("UNKNOWN", {{.name = "id"}});
    EXPECT_TRUE(table.RegisterTable(false));
    EXPECT_TRUE(table.IsValid());
}

TEST_F(TableHandle, RegisteringAnInvalidHandleTakesTheEntryThatTheCacheHas)
{
    CMyTable table(nullptr, "orders");
    const CMyTable other = Orders();
    m_client.ForgetCalls();
    EXPECT_TRUE(table.RegisterTable(false));
    EXPECT_TRUE(m_client.Calls().empty());
    EXPECT_EQ(table.GetField(0UL), other.GetField(0UL));
}

TEST_F(TableHandle, RegisteringAnewWithoutAConnectionRemovesTheEntryAndFails)
{
    Orders();
    CMyTable table(nullptr, "orders");
    ASSERT_TRUE(table.IsValid());
    EXPECT_FALSE(table.RegisterTable(true));
    EXPECT_FALSE(table.IsValid());
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(TableHandle, RegisteringAnInvalidHandleFailsWhileTheTableIsUnknown)
{
    CMyTable table = Unknown();
    EXPECT_FALSE(table.RegisterTable(false));
    EXPECT_FALSE(table.RegisterTable(true));
    EXPECT_FALSE(table.IsValid());
}

TEST_F(TableHandle, RegisteringAnewSeesAChangedTable)
{
    CMyTable table = Orders();
    m_client.OnListFields("ORDERS", {{.name = "new"}});
    m_client.ForgetCalls();
    EXPECT_TRUE(table.RegisterTable(true));
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", statusOfOrders}));
    EXPECT_EQ(table.GetFieldCount(), 1);
    EXPECT_EQ(m_cache.GetCount(), 1U);
}

TEST_F(TableHandle, RegisteringAnewADroppedTableMakesTheHandleInvalid)
{
    CMyTable table = Orders();
    m_client.OnListFieldsError("ORDERS", 1146);
    EXPECT_FALSE(table.RegisterTable(true));
    EXPECT_FALSE(table.IsValid());
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(TableHandle, UnregisteringRemovesTheEntryAndMakesThisHandleInvalid)
{
    CMyTable table = Orders();
    const CMyTable other(table);
    EXPECT_TRUE(table.UnregisterTable());
    EXPECT_FALSE(table.IsValid());
    EXPECT_TRUE(other.IsValid());
    EXPECT_EQ(m_cache.GetCount(), 0U);
    EXPECT_FALSE(table.UnregisterTable());
}

TEST_F(TableHandle, UnregisteringFailsWhenTheTableWasNeverLoaded)
{
    EXPECT_FALSE(Unknown().UnregisterTable());
    EXPECT_FALSE(CMyTable(&m_database, "").UnregisterTable());
}

TEST_F(TableHandle, UnregisteringWithoutAnEntryInTheCacheLeavesTheHandleAlone)
{
    CMyTable table = Orders();
    m_cache.RemoveAll();
    EXPECT_FALSE(table.UnregisterTable());
    EXPECT_TRUE(table.IsValid());
}

TEST_F(TableHandle, UnregisteringAnInvalidHandleRemovesTheEntryOfItsName)
{
    CMyTable table = Unknown();
    m_client.OnListFields("UNKNOWN", {{.name = "id"}});
    ASSERT_TRUE(Unknown().IsValid());
    EXPECT_TRUE(table.UnregisterTable());
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(TableHandle, ClearingTheCacheDropsEveryTableAndLoadsThisOneAgain)
{
    CMyTable table = Orders();
    const CMyTable items(&m_database, "items");
    m_client.OnListFields("ORDERS", {{.name = "new"}});
    m_client.ForgetCalls();
    table.ClearTableCache();
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", statusOfOrders}));
    EXPECT_EQ(m_cache.GetCount(), 1U);
    EXPECT_EQ(table.GetFieldCount(), 1);
    EXPECT_TRUE(items.IsValid());
}

TEST_F(TableHandle, Kept_K23_AsksForItsEntryTwiceWhenItClearsTheCache)
{
    CMyTable table(&m_database, " orders ");
    m_client.ForgetCalls();
    table.ClearTableCache();
    EXPECT_EQ(TakeTraffic(), (Traffic{"list ORDERS", statusOfOrders, "list ORDERS", statusOfOrders}));
    EXPECT_EQ(m_cache.GetCount(), 2U);
    EXPECT_TRUE(table.IsValid());
}

TEST_F(TableHandle, ClearingTheCacheMakesTheHandleOfADroppedTableInvalid)
{
    CMyTable table = Orders();
    m_client.OnListFieldsError("ORDERS", 1146);
    table.ClearTableCache();
    EXPECT_FALSE(table.IsValid());
    EXPECT_EQ(m_cache.GetCount(), 0U);
}

TEST_F(TableHandle, TakesAnyNameWithoutHarm)
{
    using namespace std::string_view_literals;
    const UtCString names[] = {
        "",
        "`",
        " ",
        "it's",
        "a`b",
        "a\"b",
        "%s%n",
        UtCString("a\0b"sv, UT_ENCODING_DEFAULT),
        UtCString("\xC3\xFF", UT_ENCODING_UTF8),
        UtCString("o\0r\0d"sv, UT_ENCODING_UTF16_LE),
        UtCString("\xD8\x00"sv, UT_ENCODING_UTF16_BE),
        UtCString("a\0\0\0"sv, UT_ENCODING_UTF32),
        UtCString(std::string(100000, 'x').c_str()),
    };
    for (const UtCString& name : names) {
        CMyTable table(&m_database, name);
        unsigned long no = 0;
        EXPECT_FALSE(table.IsValid());
        EXPECT_FALSE(table.RegisterTable(true));
        EXPECT_FALSE(table.UnregisterTable());
        table.ClearTableCache();
        const CMyTable orders = Orders();
        EXPECT_FALSE(orders.GetFieldNo(name, no));
        EXPECT_EQ(Text(orders.GetFields(name)), "`ID`, `NAME`, `PRICE`");
    }
}

} // namespace
