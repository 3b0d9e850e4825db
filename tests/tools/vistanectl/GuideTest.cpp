#include "Vistanectl.h"

#include <QFile>

// docs/operators.md ends with what the program says of its settings.
TEST(OperatorsGuide, HoldsTheTablesOfTheProgram)
{
    QFile file(QStringLiteral(SOURCE_DIR "/docs/operators.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray guide = file.readAll();
    EXPECT_EQ(guide.sliced(guide.indexOf("### ")).trimmed().toStdString(),
              QByteArray::fromStdString(Vistanectl().run({"guide"}).out).trimmed().toStdString());
}
