#include "support/signallog.h"
#include "support/testcase.h"

#include <TamberUi/JsonMimeData>
#include <TamberUi/MimeDropHandler>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QMimeData>
#include <QtCore/QRandomGenerator>

#include <cmath>
#include <limits>

using namespace ta::ui;
using namespace ta::test;

namespace {

const QString kType = QStringLiteral("application/x-card");

// A JSON value of any kind, with objects and arrays down to \a depth levels.
QJsonValue randomValue(QRandomGenerator &random, int depth)
{
    switch (random.bounded(depth > 0 ? 7 : 5)) {
    case 0:
        return QJsonValue::Null;
    case 1:
        return random.bounded(2) == 1;
    case 2: {
        // Small and large, whole and not. Those in between are read as integers of 64 bits, which
        // compare as other numbers than they do as reals.
        const int exponent = random.bounded(2) == 1 ? random.bounded(-1000, 52)
                                                    : random.bounded(64, 1000);
        return std::ldexp(-1 - random.generateDouble(), exponent);
    }
    case 3:
        return random.bounded(-1000000, 1000000);
    case 4: {
        QString text;
        for (int length = random.bounded(12); length > 0; --length) {
            const uint codes[] = { random.bounded(0x20u), random.bounded(0x20u, 0x7fu),
                                   random.bounded(0x80u, 0xd800u),
                                   random.bounded(0x10000u, 0x110000u) };
            text += QString::fromUcs4(&codes[random.bounded(4)], 1);
        }
        return text;
    }
    case 5: {
        QJsonArray array;
        for (int count = random.bounded(5); count > 0; --count)
            array.append(randomValue(random, depth - 1));
        return array;
    }
    default: {
        QJsonObject object;
        for (int count = random.bounded(5); count > 0; --count)
            object.insert(randomValue(random, 0).toVariant().toString(),
                          randomValue(random, depth - 1));
        return object;
    }
    }
}

} // namespace

class tst_MimeData : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void properties();
    void payload();
    void validity();
    void roundTrips();
};

void tst_MimeData::properties()
{
    JsonMimeData data;
    SignalLog log;
    log.watch(&data);
    const QJsonObject object { { QStringLiteral("id"), 7 } };
    data.setMimeType(kType);
    data.setMimeType(kType);
    data.setValue(object);
    data.setValue(QJsonObject { { QStringLiteral("id"), 7 } }); // equal, not the same
    data.setValue({ { QStringLiteral("id"), QStringLiteral("7") } });
    QCOMPARE(log.take(), names({ "mimeTypeChanged", "valueChanged", "valueChanged" }));
}

// One format, named as the author did, with the indented text; each call makes its own.
void tst_MimeData::payload()
{
    JsonMimeData data;
    data.setMimeType(kType);
    data.setValue({ { QStringLiteral("id"), 7 },
                    { QStringLiteral("not a number"), qQNaN() },
                    { QStringLiteral("infinite"), std::numeric_limits<double>::infinity() } });
    const std::unique_ptr<QMimeData> first(data.createMimeData());
    const std::unique_ptr<QMimeData> second(data.createMimeData());
    QVERIFY(first && second && first != second);
    QCOMPARE(first->formats(), QStringList(kType));
    QCOMPARE(first->data(kType), QByteArray("{\n    \"id\": 7,\n    \"infinite\": null,\n"
                                            "    \"not a number\": null\n}\n"));
    QCOMPARE(second->data(kType), first->data(kType));
}

void tst_MimeData::validity()
{
    JsonMimeData data;
    const QJsonObject object { { QString(), QJsonValue::Null } }; // a key is a key
    for (const QString &type : { QString(), kType }) {
        for (const QJsonObject &value : { QJsonObject(), object }) {
            data.setMimeType(type);
            data.setValue(value);
            QCOMPARE(data.isValid(), type == kType && value == object);
            // Nothing drags an invalid payload, but asking for it is no error.
            const std::unique_ptr<QMimeData> made(data.createMimeData());
            QVERIFY(made);
        }
    }
}

// What goes in comes out, whatever it is and however much.
void tst_MimeData::roundTrips()
{
    JsonMimeData data;
    data.setMimeType(kType);
    const auto arrived = [&data](const QJsonObject &sent) {
        data.setValue(sent);
        const std::unique_ptr<QMimeData> made(data.createMimeData());
        MimeDropHandler handler;
        handler.setAcceptedMimeTypes({ kType });
        return handler.acceptsMimeData(made.get())
                   ? handler.extractMimeData(made.get()).toJsonObject()
                   : QJsonObject();
    };
    QRandomGenerator random(20);
    for (int round = 0; round < 5000; ++round) {
        const QJsonObject sent { { QStringLiteral("payload"), randomValue(random, 6) } };
        if (arrived(sent) != sent)
            QFAIL(QJsonDocument(sent).toJson().constData());
    }

    QJsonObject deep { { QStringLiteral("leaf"), true } };
    for (int level = 0; level < 1000; ++level)
        deep = { { QStringLiteral("node"), deep } };
    QCOMPARE(arrived(deep), deep);

    const QJsonObject large { { QStringLiteral("text"), QString(10 << 20, QLatin1Char('"')) } };
    QCOMPARE(arrived(large), large);
}

TAMBER_TEST_MAIN(tst_MimeData)
#include "tst_mimedata.moc"
