#pragma once

#include "FuzzSupport.h"

#include "MPPXMLDOMFilter/Adapters/MSPEXMLDocumentAdapter.h"
#include "MPPXMLDOMFilter/Adapters/MSPEXMLProjectAdapter.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"
#include "Platform/Values/Exception.h"
#include "Platform/Xml/XMLDocument.h"
#include "TWMSPCommon/MSPExportMapper/Coordinator/MSPEMapper.h"

#include <memory>
#include <string>
#include <string_view>

namespace brackwater::fuzz {

/// Takes a scenario's text all the way to a preprocessed project. Failures that the system raises are expected;
/// anything else is a fault.
inline void mapScenario(std::string_view scenario, std::string_view contents, std::string_view baseline) {
    std::shared_ptr<XMLDocument> plan = XMLDocument::readText(scenario, "plan.xml");
    std::shared_ptr<XMLDocument> toc = XMLDocument::readText(contents, "__TOC.xml");
    std::vector<std::shared_ptr<XMLDocument>> baselines;
    if (std::shared_ptr<XMLDocument> document = XMLDocument::readText(baseline, "baseline.xml"))
        baselines.push_back(std::move(document));
    if (!plan || !toc)
        return;
    try {
        MSPEMapper mapper(std::move(plan), std::move(toc), std::move(baselines), std::nullopt);
        mapper.map();
        if (mapper.mspdiXmlDoc())
            MPPProjectWriter::preprocessProject(*mapper.mspdiXmlDoc()->rootElement()->mppDomObject());
    } catch (const Exception&) {
        // The failure that a faulty document ends in.
    }
}

inline constexpr std::string_view kContents =
    "<contents><project><title>Plan</title><currency-format>$1,234.56</currency-format></project></contents>";

} // namespace brackwater::fuzz
