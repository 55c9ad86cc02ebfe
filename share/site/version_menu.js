// The menu of versions. The list of them is a script beside their folders, so that a version which was built long ago
// knows those that came after it.
"use strict";
(() => {
    const own = document.currentScript;
    const top = new URL(".", own.src);
    const list = new URL(own.dataset.list, top);
    const addressOf = (version, page) => new URL(version.folder.split("/").map(encodeURIComponent).join("/") + "/" + page, list);

    // A server is asked whether it has a page. From a file, pages can only be loaded as scripts; they run nothing, since
    // they end at their first character.
    const hasPage = (address) => address.protocol === "file:" ?
        new Promise((done) => {
            const script = document.createElement("script");
            script.src = address;
            script.onload = () => done(true);
            script.onerror = () => done(false);
            document.head.append(script);
        }) :
        fetch(address, { method: "HEAD" }).then((response) => response.ok, () => false);

    // The same page of another version, or the first one when it does not have that.
    const open = async (version) => {
        const same = addressOf(version, location.pathname.slice(top.pathname.length));
        location.href = await hasPage(same) ? same.href + location.hash : addressOf(version, "index.htm").href;
    };

    // What the list calls.
    window.tavidocVersions = (versions) => {
        const current = versions.findIndex((version) =>
            decodeURIComponent(addressOf(version, "").pathname) === decodeURIComponent(top.pathname));
        const place = document.querySelector(".breadcrumbs li");
        if (current < 0 || versions.length < 2 || !place)
            return;
        const menu = document.createElement("select");
        menu.id = "site-version";
        menu.setAttribute("aria-label", "Version");
        menu.append(...versions.map((version) => new Option(version.title)));
        menu.selectedIndex = current;
        menu.onchange = () => open(versions[menu.selectedIndex]);
        // A page that the browser kept shows its own version when the reader comes back.
        addEventListener("pageshow", () => menu.selectedIndex = current);
        place.append(" ", menu);
    };

    const script = document.createElement("script");
    script.src = list;
    document.head.append(script);
})();
