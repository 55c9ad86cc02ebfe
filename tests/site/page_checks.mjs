// Functions that run in the page: each is handed over as its source text and returns what is wrong, or what there is.

/** The texts whose contrast to what is behind them is less than `least`. */
export function weakTexts(least) {
    const canvas = document.createElement("canvas").getContext("2d", { willReadFrequently: true });
    const parsed = (colour) => {
        canvas.clearRect(0, 0, 1, 1);
        canvas.fillStyle = colour;
        canvas.fillRect(0, 0, 1, 1);
        const [r, g, b, a] = canvas.getImageData(0, 0, 1, 1).data;
        return [r, g, b, a / 255];
    };
    const over = ([r, g, b, a], [r2, g2, b2]) => [r * a + r2 * (1 - a), g * a + g2 * (1 - a), b * a + b2 * (1 - a), 1];
    const ground = (element) => {
        const colour = parsed(getComputedStyle(element).backgroundColor);
        if (colour[3] === 1)
            return colour;
        return over(colour, element.parentElement ? ground(element.parentElement) : [255, 255, 255]);
    };
    const luminance = (colour) => colour.slice(0, 3).map((part) => part / 255)
        .map((part) => part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4)
        .reduce((sum, part, i) => sum + part * [0.2126, 0.7152, 0.0722][i], 0);
    const weak = new Set();
    const texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    while (texts.nextNode()) {
        const element = texts.currentNode.parentElement;
        if (!texts.currentNode.data.trim() || !element.checkVisibility() || element.closest("script, style, noscript"))
            continue;
        const behind = ground(element);
        const ink = over(parsed(getComputedStyle(element).color), behind);
        const [low, high] = [luminance(ink), luminance(behind)].sort((a, b) => a - b);
        const contrast = (high + 0.05) / (low + 0.05);
        if (contrast < least)
            weak.add(`${element.localName}.${element.className} ${contrast.toFixed(2)}: ${texts.currentNode.data.trim().slice(0, 20)}`);
    }
    return [...weak];
}

/** Links, buttons and fields without a name, pictures without a description, ids that occur twice. */
export function unnamed() {
    const named = (element) => element.ariaLabel || element.textContent.trim() || element.querySelector("img[alt]:not([alt=''])");
    const wrong = [...document.querySelectorAll("a[href], button, input, summary")].filter((element) => !named(element));
    wrong.push(...document.querySelectorAll("img:not([alt])"));
    const ids = [...document.querySelectorAll("[id]")].map((element) => element.id);
    const twice = ids.filter((id, index) => ids.indexOf(id) !== index);
    return [...wrong.map((element) => element.outerHTML.slice(0, 80)), ...twice];
}

/** How many landmarks there are of each kind, and the names of those for navigation outside the text. */
export function landmarks() {
    const count = (selector) => document.querySelectorAll(selector).length;
    const name = (nav) => nav.ariaLabel ?? document.getElementById(nav.getAttribute("aria-labelledby"))?.textContent;
    return { banner: count("body > header"), main: count("main"), search: count("[role=search]"), footer: count("body > footer"),
        navigation: [...document.querySelectorAll("nav")].filter((nav) => !nav.closest("main")).map(name) };
}

export function facts() {
    return { h1: document.querySelectorAll("h1").length, language: document.documentElement.lang,
        current: document.querySelectorAll(".contents [aria-current=page]").length };
}

/** The element that has the focus: where it is, whether it is in the window and differs from one without. */
export function focused() {
    const element = document.activeElement;
    if (element === document.body)
        return null;
    const regions = { ".skip": "skip", ".breadcrumbs": "breadcrumbs", "#site-search-form": "search", "#site-theme": "theme",
        ".contents": "contents", main: "main", ".page-contents": "page contents", ".sequence": "sequence" };
    const box = element.getBoundingClientRect();
    const style = getComputedStyle(element);
    return { name: element.textContent.slice(0, 30),
        region: Object.entries(regions).find(([selector]) => element.closest(selector))?.[1],
        isVisible: box.width > 0 && box.bottom > 0 && box.top < innerHeight && box.right > 0 && box.left < innerWidth,
        hasMark: style.outlineStyle !== "none" && parseFloat(style.outlineWidth) >= 1 };
}

export function scrollableBoxes() {
    return [...document.querySelectorAll(".box, .listing > pre")].filter((box) => box.scrollWidth > box.clientWidth)
        .map((box) => ({ tabIndex: box.tabIndex, role: box.role, name: box.ariaLabel ?? "" }));
}

/** Elements with a transition or an animation. */
export function moving() {
    return [...document.querySelectorAll("*")].filter((element) => {
        const style = getComputedStyle(element);
        return style.animationName !== "none" || style.transitionDuration.split(", ").some((time) => parseFloat(time) > 0 &&
            style.transitionProperty !== "none");
    }).map((element) => element.outerHTML.slice(0, 60));
}

/** What is shown outside the text and the footer. */
export function shownBesideText() {
    return [...document.body.children].filter((element) => !element.matches("main, footer, script") && element.checkVisibility())
        .map((element) => element.outerHTML.slice(0, 60));
}

/** What is wider than its place: on paper it would be cut, or the browser would print everything smaller. */
export function tooWide() {
    const edge = document.documentElement.clientWidth + 1;
    return [...document.querySelectorAll("main *, nav *")].filter((element) => element.checkVisibility() &&
        (element.getBoundingClientRect().right > edge ||
            (getComputedStyle(element).display !== "inline" && element.clientWidth > 0 && element.scrollWidth > element.clientWidth + 1)))
        .map((element) => element.outerHTML.slice(0, 100));
}
