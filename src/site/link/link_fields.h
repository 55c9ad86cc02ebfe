#pragma once

#include "site/link/link_data.h"
#include "site/record/field_writer.h"

namespace tavidoc {

constexpr CheckLevel lastOf(CheckLevel)
{
    return CheckLevel::Error;
}

void describe(auto &fields, OneOf<LinkTarget> auto &target)
{
    fields("title", target.title);
    fields("address", target.address);
}

void describe(auto &fields, OneOf<NavigationEntry> auto &entry)
{
    fields("target", entry.target);
    fields("depth", entry.depth);
    fields("isCurrent", entry.isCurrent);
    fields("isAncestor", entry.isAncestor);
    fields("isGap", entry.isGap);
}

void describe(auto &fields, OneOf<ResolvedLink> auto &link)
{
    fields("link", link.link);
    fields("address", link.address);
    fields("caption", link.caption);
}

void describe(auto &fields, OneOf<ResolvedImage> auto &image)
{
    fields("image", image.image);
    fields("address", image.address);
}

void describe(auto &fields, OneOf<ResolvedBase> auto &base)
{
    fields("base", base.base);
    fields("address", base.address);
}

void describe(auto &fields, OneOf<ResolvedName> auto &name)
{
    fields("name", name.name);
    fields("address", name.address);
}

void describe(auto &fields, OneOf<PageLinks> auto &page)
{
    fields("page", page.page);
    fields("address", page.address);
    fields("title", page.title);
    fields("ancestors", page.ancestors);
    fields("navigation", page.navigation);
    fields("previous", page.previous);
    fields("next", page.next);
    fields("links", page.links);
    fields("images", page.images);
    fields("bases", page.bases);
    fields("derived", page.derived);
    fields("names", page.names);
}

void describe(auto &fields, OneOf<CopiedFile> auto &file)
{
    fields("source", file.source);
    fields("address", file.address);
}

void describe(auto &fields, OneOf<RecordLinks> auto &links)
{
    fields("input", links.input);
    fields("folder", links.folder);
    fields("pages", links.pages);
    fields("images", links.images);
}

void describe(auto &fields, OneOf<ProjectPlace> auto &place)
{
    fields("line", place.line);
    fields("column", place.column);
}

void describe(auto &fields, OneOf<SiteInventory> auto &inventory)
{
    fields("file", inventory.file);
    fields("url", inventory.url);
}

void describe(auto &fields, OneOf<SiteSettings> auto &settings)
{
    fields("title", settings.title);
    fields("version", settings.version);
    fields("url", settings.url);
    fields("copyright", settings.copyright);
    fields("language", settings.language);
    fields("logo", settings.logo);
    fields("favicon", settings.favicon);
    fields("style", settings.style);
    fields("levels", settings.levels);
    fields("autolink", settings.autolink);
    fields("redirects", settings.redirects);
    fields("assets", settings.assets);
    fields("projectFile", settings.projectFile);
    fields("redirectPlaces", settings.redirectPlaces);
    fields("isWatched", settings.isWatched);
    fields("inventories", settings.inventories);
    fields("versionList", settings.versionList);
    fields("versionTitle", settings.versionTitle);
}

void describe(auto &fields, OneOf<ContentsEntry> auto &entry)
{
    fields("target", entry.target);
    fields("depth", entry.depth);
}

void describe(auto &fields, OneOf<NameEntry> auto &entry)
{
    fields("name", entry.name);
    fields("kind", entry.kind);
    fields("owner", entry.owner);
    fields("address", entry.address);
    fields("qualifiedName", entry.qualifiedName);
}

void describe(auto &fields, OneOf<SharedLinks> auto &shared)
{
    fields("settings", shared.settings);
    fields("contents", shared.contents);
    fields("names", shared.names);
    fields("addresses", shared.addresses);
    fields("firstPage", shared.firstPage);
}

} // namespace tavidoc
