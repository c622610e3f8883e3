// Texts that the library takes apart. The first byte of the input chooses who does it.

#include "fuzz_target.h"
#include "platform/os/osu_FilePath.h"
#include "platform/os/osu_UrlParser.h"
#include "platform/store/fio_File.h"
#include "platform/text/exc_Exception.h"
#include "platform/text/msg_NaturalOrder.h"
#include "platform/text/msg_translate.h"

#include <cstdlib>
#include <cstring>
#include <sqlite3.h>
#include <string>
#include <unistd.h>
#include <vector>

bool fuzz_gaveData = true;

namespace {

void demand(bool holds)
{
    if (!holds) std::abort();
}

class fuzz_Texts : public pcl_Class<fuzz_Texts>
{
public:
    static constexpr const char* className = "fuzz_Texts";
    static constexpr unsigned classId = 0x7f000030;
    static constexpr int classVersion = 1;
    template<class Self, class V> static void attributes(Self& self, V&& visit) { visit("texts", self.m_texts); }

    std::vector<std::string> m_texts;
};

// A database whose only row holds a list of texts, and the statement that overwrites it.
class ListInARow
{
public:
    ListInARow()
    {
        const std::string folder = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
        m_path = folder + "/yld-fuzz-texts-" + std::to_string(getpid()) + ".yld";
        unlink(m_path.c_str());
        {
            const fio_File file = fio_File::Create(m_path.c_str());
            fuzz_Texts texts;
            texts.m_texts = {"a"};
            file.body()->setRootObject(lnk_ShortCut<fuzz_Texts>::create(file.body(), texts).id());
            file.body()->save();
        }
        demand(sqlite3_open(m_path.c_str(), &m_handle) == SQLITE_OK);
        sqlite3_exec(m_handle, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
        sqlite3_exec(m_handle, "PRAGMA journal_mode = MEMORY", nullptr, nullptr, nullptr);
        demand(sqlite3_prepare_v2(m_handle, "UPDATE fuzz_Texts SET texts = ?1", -1, &m_update, nullptr) == SQLITE_OK);
    }
    ~ListInARow()
    {
        sqlite3_finalize(m_update);
        sqlite3_close(m_handle);
        unlink(m_path.c_str());
    }

    void read(const std::string& text)
    {
        sqlite3_bind_text64(m_update, 1, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
        demand(sqlite3_step(m_update) == SQLITE_DONE);
        sqlite3_reset(m_update);
        const fio_File file = fio_File::Open(m_path.c_str(), false, true);
        std::vector<std::string> list;
        try {
            list = lnk_ShortCut<fuzz_Texts>(file.body(), file.body()->rootObject()).fetch()->m_texts;
        } catch (const exc_Exception&) {
            return;
        }
        // What was accepted has no more characters than were there.
        std::size_t characters = 0;
        for (const std::string& item : list) characters += item.size() + 3;
        demand(characters <= text.size());
    }

private:
    std::string m_path;
    sqlite3* m_handle = nullptr;
    sqlite3_stmt* m_update = nullptr;
};

void takePathApart(const std::string& text)
{
    const shr_String path(text.c_str());
    const osu_FilePathParser parser(path);
    demand(parser.DirName().length() + parser.BaseName().length() + parser.Extension().length() <= path.length() + 1);
    const osu_FilePath file(path, shr_String("/a/b"));
    const shr_String absolute = osu_FilePath(path, shr_String("/a/b")).AbsolutePathName();
    // What is absolute stays as it is.
    demand(osu_FilePath(absolute, shr_String("/c")).AbsolutePathName() == absolute);
    file.Portable().PathName();
}

void takeUrlApart(const std::string& text)
{
    const shr_String url(text.c_str());
    if (!osu_UrlParser::IsUrl(url)) return;
    demand(osu_UrlParser::GetScheme(url).length() > 0);
    osu_UrlParser::GetHost(url);
    osu_UrlParser::GetPort(url);
    osu_UrlParser::GetPath(url);
}

void fillInMessage(const std::string& text)
{
    msg_translate message(text.c_str());
    message.msg_SubstituteFormat(1, "%2$s");
    message.msg_SubstituteFormat(2, 7);
    message.msg_SubstituteFormat(9, "");
    message.Result();
}

void compareNaturally(const std::string& text)
{
    const std::size_t half = text.size() / 2;
    const std::string a = text.substr(0, half).c_str();
    const std::string b = text.substr(half).c_str();
    const int order = strnatcmp(a.c_str(), b.c_str());
    const int back = strnatcmp(b.c_str(), a.c_str());
    demand((order < 0) == (back > 0) && (order == 0) == (back == 0));
    demand(strnatcmp(a.c_str(), a.c_str()) == 0);
}

void showNumber(const std::string& text)
{
    double number = 0.0;
    std::memcpy(&number, text.data(), text.size() < sizeof number ? text.size() : sizeof number);
    demand(shr_String(number).length() > 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    static ListInARow list;
    if (count == 0) return 0;
    const std::string text(reinterpret_cast<const char*>(bytes) + 1, count - 1);
    switch (bytes[0] % 6) {
    case 0:
        takePathApart(text);
        break;
    case 1:
        takeUrlApart(text);
        break;
    case 2:
        fillInMessage(text);
        break;
    case 3:
        compareNaturally(text);
        break;
    case 4:
        showNumber(text);
        break;
    default:
        list.read(text);
    }
    return 0;
}
