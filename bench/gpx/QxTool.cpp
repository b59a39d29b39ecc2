#include "GpxTool.h"

#include <GpxBindings.h>

namespace bench {
namespace {

class CQxTool : public CGpxTool {
public:
    void Load(const std::vector<unsigned char>& document) override {
        m_gpx = nullptr;
        m_gpx = new Gpx::CGpx();
        m_gpx->FromXmlStream(const_cast<unsigned char*>(document.data()),
                             static_cast<unsigned long>(document.size()));
    }
    size_t Write() override { return m_gpx->ToXmlStream(true, false).GetLength(); }

private:
    QxXmlLib16::CSmartPtr<Gpx::CGpx> m_gpx;
};

} // namespace

std::unique_ptr<CGpxTool> MakeQxTool() {
    return std::make_unique<CQxTool>();
}

} // namespace bench
