// Rejects script that the browser control's engine cannot run: syntax newer than ECMAScript 5, and names
// that are newer in the language or the document model.

const laterGlobals = new Set(`fetch Promise Map Set WeakMap WeakSet Symbol Proxy Reflect BigInt URL
    URLSearchParams AbortController Headers Request Response FormData TextEncoder TextDecoder Intl
    IntersectionObserver ResizeObserver BroadcastChannel customElements queueMicrotask
    structuredClone requestIdleCallback globalThis EventTarget CustomEvent MutationObserver matchMedia
    atob btoa ArrayBuffer DataView Uint8Array Int32Array Float32Array Float64Array Worker WebSocket`.split(/\s+/));

const laterMembers = new Set(`closest matches append prepend replaceWith replaceChildren before after
    remove toggleAttribute getAttributeNames insertAdjacentElement classList dataset content
    shadowRoot attachShadow currentScript scrollTo scrollBy isConnected composedPath includes
    startsWith endsWith repeat padStart padEnd trimStart trimEnd codePointAt normalize matchAll
    replaceAll find findIndex findLast fill copyWithin flat flatMap at from of assign entries values
    getOwnPropertyDescriptors fromEntries isInteger isFinite isNaN parseFloat sign trunc hypot log2
    log10 cbrt fround imul requestAnimationFrame`.split(/\s+/));

function walk(node, visit, parent) {
    if (!node || typeof node.type !== "string") return;
    visit(node, parent);
    for (const value of Object.values(node)) {
        for (const child of Array.isArray(value) ? value : [value]) walk(child, visit, node);
    }
}

// Returns the faults of a script, one line each. `allowed` lists names that the script may use, because
// it checks for them first or defines them itself.
export function findLaterThanEs5(acorn, name, script, allowed = []) {
    const faults = new Set();
    let tree;
    try {
        tree = acorn.parse(script, { ecmaVersion: 5, sourceType: "script" });
    } catch (error) {
        return [`${name}: ${error.message}`];
    }
    walk(tree, (node, parent) => {
        if (node.type === "MemberExpression") {
            const member = node.computed ? node.property.value : node.property.name;
            const isMath = node.object.name === "Math" || node.object.name === "Number";
            const isOwnName = ["isNaN", "isFinite", "parseFloat"].includes(member) && !isMath;
            if (laterMembers.has(member) && !isOwnName) faults.add(member);
            if (node.object.name === "window" && laterGlobals.has(member)) faults.add(member);
        } else if (node.type === "Identifier" && laterGlobals.has(node.name)) {
            const isKey = parent.type === "Property" && parent.key === node;
            const isMember = parent.type === "MemberExpression" && parent.property === node && !parent.computed;
            if (!isKey && !isMember) faults.add(node.name);
        }
    });
    return [...faults].filter((fault) => !allowed.includes(fault)).map((fault) => `${name}: uses ${fault}`);
}
