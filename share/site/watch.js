// Reloads the page when the site changed, and shows what is wrong. Only "tavidoc-site watch" puts it into pages.
"use strict";
(() => {
    const address = new URL(".tavidoc-site-watch.js", document.currentScript.src);
    const opened = Date.now() - performance.now();
    const isRemoved = document.getElementById("site-removed") !== null; // this page takes the place of a removed one
    const scrollKey = "tavidoc-scroll " + location.pathname;
    const dismissedKey = "tavidoc-dismissed";
    const pause = 100; // ms
    const longPause = 1000; // ms, while nobody watches the site
    let first, shown = "", count = 0;

    // What a page leaves to its successors in this window. Storage may be forbidden.
    const left = (key) => {
        try {
            return sessionStorage.getItem(key);
        } catch {
            return null;
        }
    };
    const leave = (key, value) => {
        try {
            sessionStorage.setItem(key, value);
        } catch { // the page begins at its top
        }
    };

    // The page may have been read just before the site changed. The clock of a server may be another one, so that is
    // taken for a change once only.
    const isOld = (changed) => {
        const isChanged = first !== undefined && changed !== first;
        first ??= changed;
        return isChanged || (changed > opened && left("tavidoc-reloaded") !== String(changed));
    };

    const reload = (changed) => {
        leave("tavidoc-reloaded", changed);
        if (!isRemoved)
            leave(scrollKey, JSON.stringify([scrollX, scrollY]));
        location.reload();
    };

    const element = (name, style, text = "") => Object.assign(document.createElement(name), { textContent: text, style });

    const show = (messages) => {
        const text = messages.join("\n");
        if (text === shown)
            return;
        shown = text;
        document.getElementById("site-watch")?.remove();
        if (text === "" || text === left(dismissedKey))
            return;
        const box = element("div", "position: fixed; inset: 0 0 auto; z-index: 1000; display: flex; gap: 1em; " +
            "max-height: 40vh; overflow: auto; padding: .5em 1em; background: #7a0019; color: #fff");
        box.id = "site-watch";
        box.role = "alert";
        const button = element("button", "align-self: start; font: inherit", "Dismiss");
        button.type = "button";
        button.onclick = () => {
            leave(dismissedKey, text);
            box.remove();
        };
        box.append(element("pre", "flex: 1; margin: 0; border: 0; padding: 0; background: none; color: inherit; " +
            "white-space: pre-wrap; overflow-wrap: anywhere", text), button);
        document.body.prepend(box);
    };

    const load = (file, done, failed) => {
        const script = document.createElement("script");
        file.search = ++count; // past the cache
        script.src = file;
        script.onload = () => done(script.remove());
        script.onerror = () => failed(script.remove());
        document.head.append(script);
    };

    // What the stamp calls. Watching never takes a page away: a notice takes the place of one that is removed. But
    // without the notice, as when all of the site was deleted, the page cannot be loaded again, so it waits. Loaded as
    // a script, a page runs nothing: it ends at its first character.
    window.tavidocWatch = (changed, messages) => {
        if (!isOld(changed))
            return show(messages);
        load(new URL(location), () => reload(changed), () => show([...messages, "This page was removed."]));
    };

    const poll = () => load(address, () => setTimeout(poll, pause), () => setTimeout(poll, longPause));

    const scroll = left(scrollKey);
    if (scroll !== null && !isRemoved) {
        sessionStorage.removeItem(scrollKey);
        addEventListener("load", () => scrollTo(...JSON.parse(scroll)));
    }
    addEventListener("load", poll);
})();
