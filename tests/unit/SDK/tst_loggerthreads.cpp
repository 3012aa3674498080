#include "SDK/Logger/Logger.h"
#include "tests/support/TemporaryWorkingDirectory.h"

#include <QtTest>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <thread>
#include <vector>

/// The log file is a pipe here. The system writes a line into a regular file in one piece, but a
/// long line into a pipe in several pieces, between which other threads may write.
class tst_LoggerThreads : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneLineAtATime();
};

namespace {

constexpr int threads = 4;
constexpr int linesPerThread = 5;
constexpr int lineLength = 300000; // Several times the capacity of a pipe.

/// What is read from \a pipe until nothing comes for some seconds, or \a lines lines.
QByteArray readLines(int pipe, int lines)
{
    constexpr int longestSilence = 5000;
    QByteArray all;
    QByteArray piece(1 << 16, Qt::Uninitialized);
    int found = 0;
    pollfd waited{pipe, POLLIN, 0};
    while (found<lines && ::poll(&waited, 1, longestSilence)> 0) {
        const auto size = static_cast<int>(::read(pipe, piece.data(), std::size_t(piece.size())));
        if (size <= 0)
            break;
        found += static_cast<int>(piece.left(size).count('\n'));
        all.append(piece.constData(), size);
    }
    return all;
}

} // namespace

void tst_LoggerThreads::oneLineAtATime()
{
    const TemporaryWorkingDirectory directory;
    QCOMPARE(::mkfifo("log.txt", 0600), 0);
    // It always has a writer, because otherwise it would end between two lines.
    const int pipe = ::open("log.txt", O_RDWR | O_NONBLOCK);
    QVERIFY(pipe >= 0);

    std::atomic<int> ready{0};
    std::vector<std::thread> writers;
    for (int number = 0; number < threads; ++number)
        writers.emplace_back([&ready, number] {
            ++ready;
            while (ready < threads)
                std::this_thread::yield();
            for (int i = 0; i < linesPerThread; ++i)
                Logger(QString(lineLength, QChar('a' + number)));
        });
    const QByteArray log = readLines(pipe, threads * linesPerThread);
    for (std::thread &writer : writers)
        writer.join();
    ::close(pipe);

    QList<QByteArray> lines = log.split('\n');
    QVERIFY(lines.takeLast().isEmpty());
    QCOMPARE(lines.size(), threads * linesPerThread);
    for (const QByteArray &line : qAsConst(lines)) {
        const QByteArray message = line.mid(line.lastIndexOf(' ') + 1).chopped(1);
        QCOMPARE(line.count('['), 1);
        QCOMPARE(message, QByteArray(lineLength, message.at(0)));
    }
}

QTEST_GUILESS_MAIN(tst_LoggerThreads)
#include "tst_loggerthreads.moc"
