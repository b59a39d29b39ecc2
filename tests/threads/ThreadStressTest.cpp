// Several threads at once on what the library shares between them: the descriptors and class factory
// of generated classes, the default context, the buffers of CBinaryData copies, the reference counts
// of bound objects and the process-wide cache of compiled patterns. Built once more under
// ThreadSanitizer, where a data race fails the run even when every result below is right.
#include <QxXmlLib16/QxXmlLib16.h>

#include "binding/support/Trips.h"
#include "support/Documents.h"

#include "GpxBindings.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <string>
#include <thread>
#include <vector>

using namespace QxXmlLib16;

namespace {

constexpr int kThreads = 4;

// Runs body(thread) on kThreads threads released together, so that they meet in the library.
void OnAllThreads(const std::function<void(int)>& body) {
    std::atomic<int> ready{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            ++ready;
            while (ready < kThreads)
                std::this_thread::yield();
            body(t);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

std::string Narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

// One way out of the bindings and back in.
struct Format {
    const char* name;
    std::function<void(const TestSchema::CTrip&, TestSchema::CTrip&)> roundTrip;
};

// JSON at round-trip level 2 needs a prefix for xsi:type below the root; one const context serves
// every thread.
const CSerializationContext& JsonContext() {
    static const CSerializationContext context = [] {
        CSerializationContext made;
        made.GetNamespaceAliases().Add(L"xsi", CXmlWriter::XSI_NAMESPACE);
        made.GetJsonContext()->SetRfc8259Escaping(true);
        return made;
    }();
    return context;
}

const std::vector<Format>& Formats() {
    static const std::vector<Format> formats = {
        {"xml",
         [](const TestSchema::CTrip& from, TestSchema::CTrip& to) { to.FromXml(from.ToXml().c_str()); }},
        {"xml-gzip",
         [](const TestSchema::CTrip& from, TestSchema::CTrip& to) {
             to.FromXmlStream(from.ToXmlStream(true, false, encUTF8, eolLF,
                                               CSerializationContext::m_defaultContext, ctGzip));
         }},
        {"fi", [](const TestSchema::CTrip& from,
                  TestSchema::CTrip& to) { to.FromXmlStream(from.ToFastInfosetStream()); }},
        {"fi-zlib",
         [](const TestSchema::CTrip& from, TestSchema::CTrip& to) {
             to.FromXmlStream(
                 from.ToFastInfosetStream(fidVersion10, CSerializationContext::m_defaultContext, ctZlib));
         }},
        {"json",
         [](const TestSchema::CTrip& from, TestSchema::CTrip& to) {
             to.FromJson(from.ToJson(true, eolLF, JsonContext()).c_str(), JsonContext());
         }},
    };
    return formats;
}

CBinaryData FileData(const std::string& path) {
    const std::string bytes = Documents::ReadBytes(path);
    return CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(bytes.data())),
                       static_cast<unsigned long>(bytes.size()), false);
}

} // namespace

// Each thread writes and reads its own objects of the same generated classes through every format,
// and loads the same GPX document through the class factory from its own copy of one buffer.
TEST(ThreadStress, SameClassesThroughEveryFormatAtOnce) {
    const std::wstring expectedTrip = Trips::Full()->ToXml();
    const CBinaryData gpxBytes = FileData(Documents::Shared("gpx/gpxpy-all-fields.gpx"));
    const std::wstring expectedGpx = Gpx::LoadDocument(gpxBytes)->ToXml();
    std::vector<CBinaryData> copies(kThreads, gpxBytes);
    std::vector<std::string> failures(kThreads);
    const int rounds = 20;

    OnAllThreads([&](int t) {
        try {
            for (int round = 0; round < rounds; ++round) {
                for (size_t f = 0; f < Formats().size(); ++f) {
                    const Format& format = Formats()[(f + static_cast<size_t>(t)) % Formats().size()];
                    const CSmartPtr<TestSchema::CTrip> read(new TestSchema::CTrip());
                    format.roundTrip(*Trips::Full(), *read);
                    if (read->ToXml() != expectedTrip) failures[t] += std::string(format.name) + " differs; ";
                }
                const CBinaryData mine(copies[t]);
                if (Gpx::LoadDocument(mine)->ToXml() != expectedGpx) failures[t] += "gpx differs; ";
            }
        } catch (const CQxException& e) {
            failures[t] += Narrow(e.GetFullMessage());
        }
    });
    for (int t = 0; t < kThreads; ++t)
        EXPECT_EQ("", failures[t]) << "thread " << t;
}

// Copies share one buffer until one of them changes; threads change theirs while the others read.
TEST(ThreadStress, BinaryDataCopiesCrossThreads) {
    const std::string text(4096, 'q');
    const CBinaryData original(reinterpret_cast<unsigned char*>(const_cast<char*>(text.data())),
                               static_cast<unsigned long>(text.size()), false);
    std::vector<CBinaryData> handed(kThreads, original);
    std::vector<int> wrong(kThreads, 0);

    OnAllThreads([&](int t) {
        for (int i = 0; i < 2000; ++i) {
            CBinaryData copy(handed[t]);
            CBinaryData other;
            other = copy;
            if (i % 2)
                other[static_cast<unsigned long>(i % 4096)] = static_cast<unsigned char>('a' + t);
            else
                other.Append(static_cast<unsigned char>(t));
            if (copy != original || copy.GetLength() != 4096) ++wrong[t];
            if (other == original) ++wrong[t];
        }
        // A buffer built here is released by another thread below.
        handed[t].Append(static_cast<unsigned char>('0' + t));
    });
    for (int t = 0; t < kThreads; ++t)
        EXPECT_EQ(0, wrong[t]) << "thread " << t;
    EXPECT_EQ(CBinaryData(reinterpret_cast<unsigned char*>(const_cast<char*>(text.data())), 4096, false),
              original);
    std::thread([moved = std::move(handed)]() mutable { moved.clear(); }).join();
}

// One object held and let go by every thread at once ends with the count it started with; objects
// made on one thread are released on another.
TEST(ThreadStress, ReferenceCountsUnderContention) {
    const CSmartPtr<TestSchema::CTrip> shared = Trips::Full();
    const long long before = shared->AddRef() - 1;
    shared->Release();
    std::vector<std::vector<CSmartPtr<TestSchema::CTrip>>> made(kThreads);

    OnAllThreads([&](int t) {
        for (int i = 0; i < 20000; ++i) {
            CSmartPtr<TestSchema::CTrip> held(shared);
            CSmartPtr<TestSchema::CTrip> again = held;
        }
        for (int i = 0; i < 50; ++i)
            made[t].push_back(Trips::Minimal());
    });
    EXPECT_EQ(before + 1, shared->AddRef());
    shared->Release();
    // Each thread releases what its neighbour made.
    OnAllThreads([&](int t) { made[(t + 1) % kThreads].clear(); });
}

// More patterns than the process keeps compiled: threads compile, evict and match the same ones at
// once, each match with the right verdict.
TEST(ThreadStress, PatternCacheUnderContention) {
    const int patterns = 1500;
    std::vector<int> wrong(kThreads, 0);

    OnAllThreads([&](int t) {
        for (int i = 0; i < patterns; ++i) {
            const int n = (i * (t + 1) * 7) % patterns + 1; // every thread walks them in its own order
            const std::string pattern = "x[0-9]{" + std::to_string(n) + "}";
            const std::wstring match = L"x" + std::wstring(static_cast<size_t>(n), L'7');
            if (!TestRegEx(pattern, match, pmExact) || TestRegEx(pattern, match + L"7", pmExact)) ++wrong[t];
        }
    });
    for (int t = 0; t < kThreads; ++t)
        EXPECT_EQ(0, wrong[t]) << "thread " << t;
}
