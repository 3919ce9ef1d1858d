// Menu bars: the host's (state `menus`) and a dialog's own (its menubar control). Both are drawn by
// MenuBar from a plain description, so opening, closing and the keyboard work the same:
//   menus: [{label, sensitive, controlId, entries: [entry, ...]}]
//   entry: {label, controlId, kind: 'item'|'toggle'|'menu', sensitive, on, entries, choose()}
// A click opens a menu, Esc or a click elsewhere closes it, arrows move between entries.

import { plainText, renderLabel } from './mnemonic.js';

let openBar = null; // the one menu bar with a menu open, page-wide

document.addEventListener('pointerdown', (event) => {
    if (openBar && !openBar.element.contains(event.target)) openBar.close();
}, true);
document.addEventListener('keydown', (event) => {
    if (event.key === 'Escape' && openBar) {
        const bar = openBar;
        bar.close();
        bar.focusButton();
        event.preventDefault();
        event.stopImmediatePropagation();
    }
}, true);

export class MenuBar {
    constructor(element) {
        this.element = element;
        element.setAttribute('role', 'menubar');
        this.menus = [];
        this.openIndex = -1;
    }

    isOpen() { return this.openIndex >= 0; }

    setMenus(menus) {
        const reopen = this.openIndex;
        this.close();
        this.menus = menus;
        this.element.textContent = '';
        this.buttons = menus.map((menu, index) => {
            const button = document.createElement('button');
            button.type = 'button';
            button.className = 'menu-button';
            button.setAttribute('aria-haspopup', 'menu');
            button.setAttribute('aria-expanded', 'false');
            button.disabled = menu.sensitive === false;
            renderLabel(button, menu.label);
            if (menu.controlId) button.dataset.controlId = String(menu.controlId);
            button.addEventListener('click', () => {
                if (this.openIndex === index) this.close();
                else this.open(index);
            });
            button.addEventListener('pointerenter', () => {
                if (this.isOpen() && this.openIndex !== index) this.open(index);
            });
            this.element.append(button);
            return button;
        });
        // A change from the host while a menu is open (a toggle flipped) keeps it open.
        if (reopen >= 0 && reopen < menus.length) this.open(reopen, false);
    }

    open(index, focusFirst = true) {
        this.close();
        if (openBar) openBar.close();
        const menu = this.menus[index];
        const button = this.buttons[index];
        this.openIndex = index;
        openBar = this;
        button.setAttribute('aria-expanded', 'true');
        const popup = this.popup(menu.entries);
        popup.style.left = `${button.offsetLeft}px`;
        popup.style.top = `${button.offsetTop + button.offsetHeight}px`;
        this.element.append(popup);
        this.popupElement = popup;
        if (focusFirst) popup.querySelector('[role^=menuitem]:not([aria-disabled=true])')?.focus();
    }

    // One level of entries; submenus open beside their entry.
    popup(entries) {
        const list = document.createElement('div');
        list.className = 'menu-popup';
        list.setAttribute('role', 'menu');
        for (const entry of entries) {
            const item = document.createElement('div');
            item.tabIndex = -1;
            item.className = 'menu-entry';
            const roles = { item: 'menuitem', toggle: 'menuitemcheckbox', menu: 'menuitem' };
            item.setAttribute('role', roles[entry.kind] || 'menuitem');
            renderLabel(item, entry.label);
            if (entry.controlId) item.dataset.controlId = String(entry.controlId);
            if (entry.kind === 'toggle') item.setAttribute('aria-checked', entry.on ? 'true' : 'false');
            if (entry.sensitive === false) item.setAttribute('aria-disabled', 'true');
            if (entry.kind === 'menu') {
                item.setAttribute('aria-haspopup', 'menu');
                item.classList.add('submenu');
                const openSub = () => {
                    list.querySelectorAll(':scope > .menu-entry > .menu-popup').forEach((p) => p.remove());
                    if (entry.sensitive === false) return;
                    const sub = this.popup(entry.entries || []);
                    sub.style.left = '100%';
                    sub.style.top = '0';
                    item.append(sub);
                };
                item.addEventListener('pointerenter', openSub);
                item.addEventListener('click', (event) => {
                    if (event.target === item) openSub();
                });
            } else {
                item.addEventListener('click', (event) => {
                    event.stopPropagation();
                    if (entry.sensitive === false) return;
                    this.close();
                    entry.choose();
                });
            }
            item.addEventListener('keydown', (event) => this.keyInPopup(event, list, item));
            list.append(item);
        }
        return list;
    }

    keyInPopup(event, list, item) {
        const items = [...list.querySelectorAll(':scope > [role^=menuitem]')];
        const at = items.indexOf(item);
        const move = { ArrowDown: 1, ArrowUp: -1 }[event.key];
        if (move) {
            items[(at + move + items.length) % items.length].focus();
        } else if (event.key === 'Enter' || event.key === ' ') {
            item.click();
        } else if (event.key === 'ArrowRight' || event.key === 'ArrowLeft') {
            const step = event.key === 'ArrowRight' ? 1 : -1;
            this.open((this.openIndex + step + this.menus.length) % this.menus.length);
        } else {
            return;
        }
        event.preventDefault();
        event.stopPropagation();
    }

    focusButton() { this.buttons?.[Math.max(0, this.lastIndex ?? 0)]?.focus(); }

    close() {
        if (this.openIndex < 0) return;
        this.lastIndex = this.openIndex;
        this.buttons[this.openIndex]?.setAttribute('aria-expanded', 'false');
        this.popupElement?.remove();
        this.popupElement = null;
        this.openIndex = -1;
        if (openBar === this) openBar = null;
    }
}

// View > Fit is the page's own item unless the host lists one: it sends {"type":"fit"} as the Fit
// button does.
const FIT_ID = 'studio.fit';
function withFit(menus) {
    const isFit = (item) => plainText(item.label) === 'Fit';
    if (menus.some((menu) => (menu.items || []).some(isFit))) return menus;
    const fit = { id: FIT_ID, label: '&Fit' };
    const view = menus.find((menu) => plainText(menu.name) === 'View');
    if (view) return menus.map((menu) => (menu === view ? { ...menu, items: [...(menu.items || []), fit] } : menu));
    return [...menus, { name: '&View', items: [fit] }];
}

// The host's menu bar from state `menus`; items send {"type":"menu","id"}.
export function hostMenus(studio, connection, element) {
    const bar = new MenuBar(element);
    connection.onState((changed) => {
        if (!changed.has('menus')) return;
        bar.setMenus(withFit(studio.state.menus || []).map((menu) => ({
            label: menu.name,
            sensitive: menu.sensitive,
            entries: (menu.items || []).map((item) => ({
                label: item.label,
                kind: 'item',
                sensitive: item.sensitive,
                choose: () => connection.send(item.id === FIT_ID ? { type: 'fit' } : { type: 'menu', id: item.id }),
            })),
        })));
    });
    return bar;
}
