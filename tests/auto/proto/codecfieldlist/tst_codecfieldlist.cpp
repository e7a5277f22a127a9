#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/json/fieldlist.h>

#include <QtTest>

using ajson::FieldList;

namespace {

QByteArrayList namesOf(const FieldList &list)
{
    QByteArrayList names;
    for (std::size_t i = 0; i < list.size(); ++i)
        names << QByteArray(list[i].data(), static_cast<int>(list[i].size()));
    return names;
}

struct Declared {
    int time = 0;
    int direction = 0;
    TAVORO_FIELDS(direction, time)
};

} // namespace

class tst_CodecFieldList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void commasAndWhiteSpaceSeparateNames();
    void emptyNamesAreNotStored();
    void namesPointIntoTheText();
    void declarationKeepsItsOrder();
    void repeatedNamesAreFound();
    void excessNamesAreCountedButNotStored();
    void listIsKnownAtCompileTime();
};

void tst_CodecFieldList::commasAndWhiteSpaceSeparateNames()
{
    const QByteArrayList expected{"enable", "type", "bright"};
    QCOMPARE(namesOf(FieldList("enable, type, bright")), expected);
    QCOMPARE(namesOf(FieldList("enable,type,bright")), expected);
    QCOMPARE(namesOf(FieldList("enable type bright")), expected);
    QCOMPARE(namesOf(FieldList(" \t\n\f\renable\t\n\f\r,type ,\fbright\r\n")), expected);
}

void tst_CodecFieldList::emptyNamesAreNotStored()
{
    QCOMPARE(namesOf(FieldList("")), QByteArrayList());
    QCOMPARE(namesOf(FieldList(" , ,")), QByteArrayList());
    QCOMPARE(namesOf(FieldList(",a,,b,")), (QByteArrayList{"a", "b"}));
}

void tst_CodecFieldList::namesPointIntoTheText()
{
    const char text[] = "a, bc";
    const FieldList list(text);
    QVERIFY(list[0].data() == text);
    QVERIFY(list[1].data() == text + 3);
    QCOMPARE(list[1].size(), std::size_t(2));
}

void tst_CodecFieldList::declarationKeepsItsOrder()
{
    QCOMPARE(namesOf(FieldList(Declared::fieldList())), (QByteArrayList{"direction", "time"}));
}

void tst_CodecFieldList::repeatedNamesAreFound()
{
    QVERIFY(FieldList("a, b, a").hasRepeatedName());
    QVERIFY(!FieldList("a, b, aa").hasRepeatedName());
}

void tst_CodecFieldList::excessNamesAreCountedButNotStored()
{
    const QByteArray text = QByteArray("n ").repeated(FieldList::maxSize + 2);
    QCOMPARE(FieldList(text.constData()).size(), std::size_t(FieldList::maxSize + 2));
}

void tst_CodecFieldList::listIsKnownAtCompileTime()
{
    constexpr FieldList list("a, b");
    static_assert(list.size() == 2 && list[1] == "b");
    QCOMPARE(list.size(), std::size_t(2));
}

QTEST_APPLESS_MAIN(tst_CodecFieldList)
#include "tst_codecfieldlist.moc"
