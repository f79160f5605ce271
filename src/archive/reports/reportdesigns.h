// Describes the three reports of the archive: what stands in each band, and where.
#pragma once

#include "toolkit/pages/report.h"

namespace reportdesigns {

ReportDesign rptListing();   // each file in a line
ReportDesign rptFullListe(); // each file in a group of its own, with the disk in its head
ReportDesign ArtistSong();   // artists and songs alone

} // namespace reportdesigns
