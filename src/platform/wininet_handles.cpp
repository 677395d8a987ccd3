#include "platform/wininet_handles.h"

#include <map>

namespace wininet::detail {

namespace {
std::map<HINTERNET, Object>& Table() {
    static std::map<HINTERNET, Object> table;
    return table;
}
}  // namespace

std::string Connection::Encode(const QString& s) const {
    const QByteArray b = utf8 ? s.toUtf8() : s.toLatin1();
    return std::string(b.constData(), size_t(b.size()));
}

QString Connection::Decode(const std::string& s) const {
    return utf8 ? QString::fromUtf8(s.data(), qsizetype(s.size())) : QString::fromLatin1(s.data(), qsizetype(s.size()));
}

// Handles are never reused in a run: a stale handle the logic still holds
// can't reach a newer object.
HINTERNET Add(Object o) {
    static HINTERNET next = 1;
    const HINTERNET h = next++;
    if (next == 0) next = 1;
    Table().emplace(h, std::move(o));
    return h;
}

Object* Lookup(HINTERNET h) {
    auto it = Table().find(h);
    return it == Table().end() ? nullptr : &it->second;
}

bool Remove(HINTERNET h) {
    return Table().erase(h) > 0;
}

std::vector<Stream*> Streams() {
    std::vector<Stream*> out;
    for (auto& [h, o] : Table())
        if (auto* s = std::get_if<std::unique_ptr<Stream>>(&o)) out.push_back(s->get());
    return out;
}

void EndStream(Stream& st, bool flush) {
    if (!st.open) return;
    st.open = false;
    bool ok = flush;
    try {
        if (ok && !st.buffer.empty()) ok = SendAll(st.data, st.buffer.data(), st.buffer.size());
    } catch (...) {
        ok = false;
    }
    st.buffer.clear();
    try {
        st.data.close();
    } catch (...) {
    }
    try {
        if (st.owner && st.owner->control) ok = st.owner->control->FinishTransfer() && ok;
    } catch (...) {
        ok = false;
    }
    st.succeeded = ok;
    if (st.owner && st.owner->activeStream == &st) st.owner->activeStream = nullptr;
}

Control* Ready(Connection* c) {
    if (!c || !c->control) return nullptr;
    if (c->activeStream) EndStream(*c->activeStream, true);
    c->control->Drain();
    return c->control.get();
}

void Settle(Control& ctl, Poco::Net::StreamSocket& data) {
    try {
        data.close();
    } catch (...) {
    }
    try {
        ctl.FinishTransfer();
    } catch (...) {
    }
}

}  // namespace wininet::detail
