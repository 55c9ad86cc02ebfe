// The theme switch, copy buttons, and the focus for boxes that scroll. Pages work without it.
"use strict";
(() => {
    const root = document.documentElement;
    const themes = { "": "as the system", light: "light", dark: "dark" };

    const storedTheme = () => {
        try {
            return localStorage.getItem("tavidoc-theme") ?? "";
        } catch { // forbidden
            return "";
        }
    };

    const setTheme = (theme) => {
        root.dataset.theme = theme;
        const button = document.getElementById("site-theme");
        if (!button)
            return;
        button.title = button.ariaLabel = "Theme: " + (themes[theme] ?? themes[""]);
    };

    const nextTheme = () => {
        const names = Object.keys(themes);
        const theme = names[(names.indexOf(root.dataset.theme) + 1) % names.length];
        setTheme(theme);
        try {
            localStorage.setItem("tavidoc-theme", theme);
        } catch { // it lasts as long as the page
        }
    };

    // Without a secure connection there is no clipboard to write to.
    const copySelected = (element) => {
        const selection = getSelection();
        selection.selectAllChildren(element);
        const isCopied = document.execCommand("copy");
        selection.removeAllRanges();
        return isCopied;
    };

    const addCopyButton = (listing) => {
        const button = document.createElement("button");
        button.className = "copy";
        button.textContent = "Copy";
        button.ariaLive = "polite";
        button.onclick = async () => {
            const isCopied = await navigator.clipboard?.writeText(listing.textContent).then(() => true, () => false);
            button.textContent = isCopied || copySelected(listing) ? "Copied" : "Not copied";
            setTimeout(() => button.textContent = "Copy", 1500);
        };
        listing.after(button);
    };

    // The arrow keys scroll a box that has the focus.
    const markScrollable = (box) => {
        const scrolls = box.scrollWidth > box.clientWidth;
        box.tabIndex = scrolls ? 0 : -1;
        box.role = scrolls ? "group" : null;
        box.ariaLabel = scrolls ? (box.matches("pre") ? "Listing" : "Table") : null;
    };

    setTheme(storedTheme());
    root.classList.add("script");
    addEventListener("storage", () => setTheme(storedTheme()));
    addEventListener("DOMContentLoaded", () => {
        setTheme(storedTheme());
        document.getElementById("site-theme").onclick = nextTheme;
        document.querySelectorAll(".listing > pre").forEach(addCopyButton);
        const observer = new ResizeObserver((entries) => entries.forEach((entry) => markScrollable(entry.target)));
        document.querySelectorAll(".box, .listing > pre").forEach((box) => observer.observe(box));
        const contents = document.querySelector(".contents");
        const current = contents.querySelector("[aria-current]");
        if (current)
            contents.scrollTop = current.offsetTop - contents.clientHeight / 2;
    });
})();
